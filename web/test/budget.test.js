/**
 * Whatever an author, a host or a storage hands over is read in time that grows with its length: 100 ms
 * of a processor for 100,000 characters of each shape, wherever it may stand.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { rewriteTags } from '../src/dom/HtmlTags.js';
import { readDeclarations, readRules } from '../src/dom/StyleText.js';
import { responsesIn, sawAll } from '../src/host/ItemState.js';
import { launchBrowser, openPage } from './support/browser.js';
import { serveModules } from './support/modules.js';
import { SHAPES } from './support/shapes.js';

const BUDGET = 100; // milliseconds
const TRIES = 5; // code that is run for the first time takes longer, and so does a busy machine

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {import('playwright-core').Page} */
let page;

before(async () => {
  server = await serveModules();
  browser = await launchBrowser();
  ({ page } = await openPage(browser, `${server.origin}/`));
  await page.evaluate(prepareReaders);
});

after(async () => {
  await browser.close();
  await server.close();
});

/** @type {Record<string, (text: string) => unknown>} */
const READERS = {
  'the tags of a page': rewriteTags,
  'the rules of a page': (text) => readRules(text, () => null),
  'the style of an element': (text) => readDeclarations(text, () => null),
  'the responses of a state': responsesIn,
  'what a state has seen': sawAll,
};

/** Runs in the page: makes those readers that need a browser. */
async function prepareReaders() {
  const { filterPage } = await import('/src/dom/HtmlFilter.js');
  const { namedFiles, withLanguage } = await import('/src/host/ItemXml.js');
  const { wholeState } = await import('/src/host/ItemState.js');
  const store = (state) => {
    try {
      wholeState(state);
    } catch {
      // Most shapes are no states.
    }
  };
  const show = (html) => filterPage(html, (name) => (name === 'a.png' ? '/a.png' : null));
  const quoted = (text) => text.replace(/[&<"]/g, (each) => `&#${each.charCodeAt(0)};`);
  window.readers = {
    'a page': show,
    'a style sheet': (text) => show(`<style>${text}</style>`),
    'a value in a rule': (text) => show(`<style>p{width:${text}</style>`),
    'a style attribute': (text) => show(`<p style="${text.replaceAll('"', '&quot;')}">x`),
    'an item': namedFiles,
    'elements of an item': (text) => namedFiles(`<A>${text}</A>`),
    'HTML in an item': (text) => namedFiles(`<A><![CDATA[${text.replaceAll(']]>', '')}]]></A>`),
    'an attribute of an item': (text) => namedFiles(`<A ImagePath="${quoted(text)}"/>`),
    'a state': store,
    'responses of a state': (text) => store(`<State><Responses>${text}</Responses></State>`),
    'an item in another language': (text) => withLanguage(text, 'fr'),
  };
}

/**
 * How long the best of some tries took.
 * @param {() => Promise<number>} clock in milliseconds
 * @param {() => unknown} act
 */
async function timeOf(clock, act) {
  let best = Infinity;
  for (let tries = 0; tries < TRIES && best > BUDGET; tries++) {
    const start = await clock();
    await act();
    best = Math.min(best, (await clock()) - start);
  }
  return best;
}

test('no text takes longer to read than others', { timeout: 120_000 }, async (t) => {
  const input = await page.context().newCDPSession(page);
  await input.send('Performance.enable');
  // Time of the processor, as others may use it too.
  const here = async () => process.cpuUsage().user / 1000;
  const there = async () => {
    const { metrics } = await input.send('Performance.getMetrics');
    return 1000 * metrics.find(({ name }) => name === 'ThreadTime').value;
  };
  const inPage = await page.evaluate(() => Object.keys(window.readers));
  for (const [why, text] of SHAPES) {
    await t.test(why, async () => {
      const slow = [];
      const hold = (reader, milliseconds) => {
        if (milliseconds > BUDGET) slow.push(`${reader}: ${Math.round(milliseconds)} ms`);
      };
      for (const [reader, read] of Object.entries(READERS)) {
        hold(reader, await timeOf(here, () => read(text)));
      }
      for (const reader of inPage) {
        const read = () =>
          page.evaluate(([name, given]) => void window.readers[name](given), [reader, text]);
        hold(reader, await timeOf(there, read));
      }
      assert.deepEqual(slow, []);
    });
  }
});
