/**
 * Items whose author means harm: hostile HTML in every place of an item that takes HTML, and in those
 * that take plain text. The item shows, can be answered, and does nothing else.
 */

import assert from 'node:assert/strict';
import { cp, mkdir, mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { launchBrowser } from './support/browser.js';
import { openExam, showItem } from './support/exam.js';
import { HOSTILE } from './support/hostile.js';
import { serveSite } from './support/site.js';

const HEART = fileURLToPath(new URL('../../items/heart', import.meta.url));

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {string} where the items are made that are served under /items/ */
let folder;

before(async () => {
  folder = await mkdtemp(join(tmpdir(), 'zavdragdrop-'));
  server = await serveSite({ '/items/': folder });
  browser = await launchBrowser();
});

after(async () => {
  await browser?.close();
  await server?.close();
  await rm(folder, { recursive: true });
});

/** Without the control characters that XML has no place for. @param {string} text */
const asData = (text) => {
  const plain = text.replace(/[\0-\x08\x0b-\x1f]/g, ' ');
  return `<![CDATA[${plain.replaceAll(']]>', ']]]]><![CDATA[>')}]]>`;
};

/** @param {string} text */
const asAttribute = (text) =>
  text.replace(/[&<"]/g, (each) => `&#${each.charCodeAt(0)};`).replace(/[\0-\x1f]/g, ' ');

/**
 * The heart, with a text in every place.
 * @param {string} heart its item.xml
 * @param {string} html
 */
function poison(heart, html) {
  const page = asData(`<html>${html}`);
  const plain = asData(html);
  const callout =
    `<Callout CalloutID="1" Top="300" Left="3000" Height="900" Width="2000"><Body>${plain}</Body>` +
    '</Callout>';
  return heart
    .replace('CaseCode="NONE"', 'CaseCode="CASE01"')
    .replace(/<Text>[^]*?<\/Text>/g, () => `<Text>${page}</Text>`)
    .replace(/<Heading>[^]*?<\/Heading>/g, () => `<Heading>${plain}</Heading>`)
    .replace(/<GroupHeading>[^]*?<\/GroupHeading>/, () => `<GroupHeading>${page}</GroupHeading>`)
    .replace('<Callouts/>', () => `<Callouts>${callout}</Callouts>`)
    .replace('<Body>Aorta</Body>', () => `<Body>${page}</Body>`)
    .replace('<Body>Left atrium</Body>', () => `<Body>${plain}</Body>`)
    .replace("Patient's right side", () => plain)
    .replace('>?</Caption>', () => `>${plain}</Caption>`)
    .replace('FontName="DejaVu Sans"', () => `FontName="${asAttribute(html)}"`);
}

/** Makes the folder of a poisoned item, and its case. */
async function makeItem(name, html) {
  const at = join(folder, name);
  await mkdir(join(at, 'graphics'), { recursive: true });
  await cp(join(HEART, 'KVStatic.xml'), join(at, 'KVStatic.xml'));
  for (const picture of ['heart.png', 'name-slot.png']) {
    await cp(join(HEART, 'graphics/name-slot.png'), join(at, 'graphics', picture));
  }
  const heart = await readFile(join(HEART, 'item.xml'), 'utf8');
  await writeFile(join(at, 'item.xml'), poison(heart, html));
  const text = `<Text>${asData(`<html>${html}`)}</Text>`;
  const heading = `<Heading>${asData(html)}</Heading>`;
  await writeFile(join(at, 'graphics/CASE01.xml'), `<Case>${heading}${text}</Case>`);
}

/** Runs in the page: does to all of an item what a user could do, and lists what should not be. */
async function provoke(element) {
  const ACTIVE =
    'script,style,link,meta,base,iframe,frame,object,embed,form,input,svg,math,template,slot,' +
    'video,audio,a[href],img[srcset],[onclick],[onerror],[onload],[autofocus],[srcdoc]';
  const wrong = [];
  const roots = [element.shadowRoot];
  for (const root of roots) {
    for (const found of root.querySelectorAll(ACTIVE)) {
      if (root !== element.shadowRoot) wrong.push(found.outerHTML);
    }
    for (const each of root.querySelectorAll('*')) {
      if (each.shadowRoot) roots.push(each.shadowRoot);
      if (root.host.id === 'brwButtons') continue;
      each.dispatchEvent(new MouseEvent('mouseover', { bubbles: true, composed: true }));
      each.focus?.({ preventScroll: true });
      if (root !== element.shadowRoot) each.click?.();
    }
  }
  await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 5)));
  if ('__ran' in window) wrong.push('something ran');
  delete window.__ran;
  if (document.title !== 'Test' || document.body.childElementCount > 1) {
    wrong.push('the document changed');
  }
  const { right, bottom, width, height } = element.getBoundingClientRect();
  if (width !== 1024 || height !== 768) wrong.push('the element changed');
  for (const [x, y] of [
    [right + 5, 100],
    [100, bottom + 5],
  ]) {
    const hit = document.elementFromPoint(x, y);
    if (hit !== document.documentElement && hit !== document.body) wrong.push('it stands outside');
  }
  return { wrong, pages: roots.length };
}

test('hostile items do nothing but show', async (t) => {
  const { page, record } = await openExam(browser, server);
  for (const [index, [why, html]] of HOSTILE.entries()) {
    await t.test(why, async () => {
      const name = `item-${index}`;
      await makeItem(name, html);
      for (const told of [record.requests, record.errors, record.violations]) told.length = 0;
      try {
        const { host, element, candidate } = await showItem(page, name);
        while (await candidate.isAsked()) await candidate.answer('OK'); // a picture is missing
        await candidate.click('instructions');
        const { wrong, pages } = await element.evaluate(provoke);
        assert.deepEqual(wrong, []);
        assert.ok(pages > 10, `only ${pages} pages were shown`);
        await candidate.closeWindow();
        await candidate.drag('source 1').to('target 1');
        assert.deepEqual(await candidate.responses(), ['A4']);
        const elsewhere = record.requests
          .map((url) => url.replace(server.origin, ''))
          .filter((path) => !path.startsWith(`/items/${name}/`) && !/^\/package\//.test(path));
        assert.deepEqual(elsewhere, []);
        const errors = record.errors.filter((told) => !/status of 404/.test(told));
        assert.deepEqual([errors, record.violations], [[], []]);
        const logged = (await host.evaluate((each) => each.takeEvents())).filter(
          ({ event, number }) => event === 'log' && number !== 53,
        );
        assert.deepEqual(logged, []);
      } finally {
        await page.evaluate(() => document.querySelector('zav-drag-drop').remove());
      }
    });
  }
  await page.context().close();
});
