/**
 * The player's page, served by the program and used in a real browser. A page that logs an error of
 * its own, or breaks its content security policy, fails the test that opened it.
 */

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { cp, mkdtemp, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { readChoice, writeChoice } from '../player/choice.js';
import { launchBrowser, openPage } from './support/browser.js';

const root = fileURLToPath(new URL('../..', import.meta.url));

/** @type {import('node:child_process').ChildProcess} */
let server;
/** @type {string} */
let address;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {string} */
let folder;

before(async () => {
  folder = await mkdtemp(join(tmpdir(), 'zavdragdrop-'));
  for (const name of ['broken', 'gone']) {
    await cp(join(root, 'items/heart'), join(folder, name), { recursive: true });
  }
  await writeFile(join(folder, 'broken/item.xml'), '<DragAndDropItem>');
  address = await serve(join(root, 'items'), folder);
  browser = await launchBrowser();
});

after(async () => {
  await browser?.close();
  server?.kill();
  await rm(folder, { recursive: true });
});

/** @param {string[]} folders @returns {Promise<string>} the address that the program prints */
function serve(...folders) {
  const program = join(root, 'build/native/bin/zavdragdrop');
  server = spawn(program, ['serve', '--port', '0', ...folders], {
    stdio: ['ignore', 'pipe', 'ignore'],
  });
  return new Promise((resolve, reject) => {
    let text = '';
    server.stdout?.on('data', (data) => {
      text += data;
      const [found] = /http:\S+/.exec(text) ?? [];
      if (found) resolve(found);
    });
    server.on('error', reject);
    server.on('exit', (code) => reject(new Error(`${program} ended with ${code}`)));
  });
}

/**
 * @param {string} hash
 * @param {(page: import('playwright-core').Page) => Promise<void>} use
 */
async function withPage(hash, use) {
  const { page, record } = await openPage(browser, address + hash, {
    viewport: { width: 1280, height: 900 },
  });
  try {
    await page.locator('zav-drag-drop[src]').waitFor();
    await ready(page);
    await use(page);
    assert.deepEqual([record.errors.at(0), record.violations.at(0)], [undefined, undefined]);
  } finally {
    await page.context().close();
  }
}

/** @param {import('playwright-core').Page} page */
function ready(page) {
  return page.evaluate(() => /** @type {any} */ (document.querySelector('zav-drag-drop')).ready);
}

/** @param {import('playwright-core').Page} page @param {string} selector */
async function texts(page, selector) {
  const found = await page.locator(selector).allTextContents();
  return found.map((text) => text.trim());
}

/** @param {() => Promise<unknown>} read @param {unknown} want */
async function eventually(read, want) {
  const end = Date.now() + 5000;
  let got = await read();
  while (JSON.stringify(got) !== JSON.stringify(want) && Date.now() < end) {
    await new Promise((resolve) => setTimeout(resolve, 20));
    got = await read();
  }
  assert.deepEqual(got, want);
}

test('an address says what is chosen, whatever stands in it', () => {
  const plain = { item: '', language: '', options: [], size: '' };
  const rows = [
    { why: 'nothing', hash: '', want: plain, written: '#' },
    {
      why: 'everything',
      hash: '#heart?options=calculator+read-only&size=800x600&language=fr',
      want: {
        item: 'heart',
        language: 'fr',
        options: ['read-only', 'calculator'],
        size: '800x600',
      },
      written: '#heart?language=fr&options=read-only+calculator&size=800x600',
    },
    {
      why: 'a name that needs quoting',
      hash: '#a%20b%3Fc%23',
      want: { ...plain, item: 'a b?c#' },
      written: '#a%20b%3Fc%23',
    },
    {
      why: 'what nobody offers',
      hash: '#heart?options=fly&size=9x9&more=1',
      want: { ...plain, item: 'heart' },
      written: '#heart',
    },
    { why: 'no code', hash: '#50%', want: { ...plain, item: '50%' }, written: '#50%25' },
  ];
  for (const { why, hash, want, written } of rows) {
    assert.deepEqual(readChoice(hash), want, why);
    assert.equal(writeChoice(readChoice(hash)), written, why);
  }
});

test('shows what the address says, and goes where the bar says', async () => {
  await withPage('#ledger?language=fr&options=calculator&size=800x600', async (page) => {
    const item = page.locator('zav-drag-drop');
    const attributes = () =>
      item.evaluate((element) =>
        ['src', 'language', 'options'].map((name) => element.getAttribute(name)),
      );
    assert.deepEqual(await attributes(), ['/items/ledger/', 'fr', 'calculator']);
    const size = await item.evaluate(({ clientWidth, clientHeight }) => [
      clientWidth,
      clientHeight,
    ]);
    assert.deepEqual(size, [800, 600]);
    await page.selectOption('#item', { label: 'The human heart' });
    await eventually(attributes, ['/items/heart/', 'fr', 'calculator']);
    await page.getByLabel('Read-only').check();
    await eventually(attributes, ['/items/heart/', 'fr', 'read-only calculator']);
    const hash = '#heart?language=fr&options=read-only+calculator&size=800x600';
    assert.equal(new URL(page.url()).hash, hash);
    await page.goBack();
    await eventually(attributes, ['/items/heart/', 'fr', 'calculator']);
    assert.equal(await page.getByLabel('Read-only').isChecked(), false);
    assert.equal(await page.title(), 'The human heart · ZavDragDrop');
    await ready(page);
  });
});

test('tells what the host sees, and does what a host does', async () => {
  await withPage('#heart?options=show-answers', async (page) => {
    const responses = () => texts(page, '#responses li');
    await eventually(
      () => texts(page, '#status, #raw, #viewed'),
      ['Not answered', 'All seen', '0'],
    );
    await page.locator('zav-drag-drop').getByText('Set Answers').click();
    await eventually(responses, ['A1', 'B2', 'C3', 'D4', 'E5', 'F6']);
    assert.deepEqual(await texts(page, '#status, #raw'), ['Answered', '6']);
    const [state] = await texts(page, '#state');
    assert.match(state, /^<State>\n {2}<Responses>\n {4}<Response>A1<\/Response>\n/);

    await page.locator('#records-section summary').click();
    await page.fill('#record-text', 'A2, B2');
    await page.getByRole('button', { name: 'Rescore' }).click();
    assert.deepEqual(await texts(page, '#rescored, #responses li'), ['A2', 'B2', 'Worth 1']);
    await page.fill('#state-text', state);
    await page.getByRole('button', { name: 'Put back' }).click();
    assert.deepEqual(await texts(page, '#raw, #responses li:last-child'), ['F6', '6']);

    await page.locator('zav-drag-drop').getByText('Reset').click();
    await page.locator('zav-drag-drop').getByRole('button', { name: 'OK' }).click();
    await eventually(responses, ['None yet']);
    assert.deepEqual(await texts(page, '#message-count, #log-count'), ['1', '']);
    await page.fill('#state-text', '<State><broken');
    await page.getByRole('button', { name: 'Put back' }).click();
    await eventually(() => texts(page, '#log-count'), ['1']);
  });
});

test('asks for the status only when told to, for that has the candidate told to scroll', async () => {
  await withPage('#elements', async (page) => {
    const messages = () => texts(page, '#message-count');
    await eventually(() => texts(page, '#viewed'), ['Not all seen']);
    assert.equal(
      await page.locator('zav-drag-drop').getByRole('button', { name: 'OK' }).count(),
      0,
    );
    await page.getByRole('button', { name: 'Ask for status' }).click();
    await page.locator('zav-drag-drop').getByRole('button', { name: 'OK' }).click();
    await eventually(messages, ['1']);
  });
});

test('says why an item cannot be shown, and shows another one', async () => {
  const { page } = await openPage(browser, `${address}#nothing`);
  const problem = () => texts(page, '#problem:not([hidden])');
  await eventually(problem, ['No item named "nothing" is served here.']);
  await rm(join(folder, 'gone/item.xml'));
  await page.selectOption('#item', 'gone');
  await eventually(problem, [`${address}items/gone/item.xml: expected an item, got 404`]);
  await page.selectOption('#item', 'broken');
  await eventually(problem, [`${address}items/broken/item.xml: the item could not be initialised`]);
  const [entry] = await texts(page, '#log p:first-child');
  assert.match(entry, /^XML error at line 1/);
  await page.selectOption('#item', 'heart');
  await eventually(() => texts(page, '#status'), ['Not answered']);
  assert.deepEqual(await problem(), []);
  await page.context().close();
});

test('keeps folded what was folded', async () => {
  await withPage('#heart', async (page) => {
    const open = () => texts(page, '#host-view:not([hidden]) details[open] > summary');
    const before = await open();
    await page.locator('#score-section summary').click();
    const kept = () => page.evaluate(() => localStorage.getItem('zavdragdrop.score-section'));
    await eventually(kept, 'folded');
    await page.reload();
    await eventually(open, before.slice(1));
    await page.getByRole('button', { name: 'Host view' }).click();
    await page.reload();
    await eventually(open, []);
    assert.equal(await page.locator('#fold').getAttribute('aria-expanded'), 'false');
    await ready(page);
  });
});
