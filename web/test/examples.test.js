/**
 * The examples for host developers: the pages do in Chromium what the documentation says, and the
 * documentation shows their code as it is.
 */

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { launchBrowser, openPage } from './support/browser.js';
import { Candidate } from './support/candidate.js';

const root = fileURLToPath(new URL('../..', import.meta.url));

// The ids of items/heart are the places in its lists. Test code cannot read them in a page that
// demands trusted types.
const HEART = { source: { 8: 8, 9: 9 }, target: { 1: 1, 2: 2 } };

/** @type {import('node:child_process').ChildProcess} */
let server;
/** @type {string} */
let address;
/** @type {import('playwright-core').Browser} */
let browser;

before(async () => {
  server = spawn(process.execPath, ['examples/web/serve.js'], {
    cwd: root,
    stdio: ['ignore', 'pipe', 'inherit'],
  });
  const [printed] = await once(server.stdout, 'data');
  address = String(printed).trim();
  browser = await launchBrowser();
});

after(async () => {
  await browser?.close();
  server?.kill();
});

/** @param {import('playwright-core').Page} page */
async function sitBefore(page) {
  const element = await page.locator('zav-drag-drop').elementHandle();
  await page.locator('#imgSourceCover-1').waitFor();
  return new Candidate(page, element, HEART);
}

/**
 * @param {string} path
 * @param {(page: import('playwright-core').Page) => Promise<void>} use
 */
async function withPage(path, use) {
  const { page, record } = await openPage(browser, address + path, {
    viewport: { width: 1280, height: 768 },
  });
  await use(page);
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
}

test('the page of ten lines shows an item that can be answered', async () => {
  await withPage('ten-lines.html', async (page) => {
    const candidate = await sitBefore(page);
    await candidate.drag('source 9').to('target 1');
    assert.deepEqual(await candidate.responses(), ['A1']);
  });
});

test('the script in the README of the package runs in such a page', async () => {
  const readme = await readFile(join(root, 'web/README.md'), 'utf8');
  const [, script] = /^```js\n([^]*?)^```$/m.exec(readme) ?? [];
  await withPage('ten-lines.html', async (page) => {
    const run = `(async () => {${script} return [item.state, fRawScore]; })()`;
    const [state, score] = await page.evaluate(run);
    assert.equal(score, 0);
    assert.equal(await page.evaluate(() => sessionStorage.getItem('state')), state);
  });
});

test('the page that is a host keeps answers over a reload, asks, and scores', async () => {
  await withPage('', async (page) => {
    let candidate = await sitBefore(page);
    const responses = () => page.locator('#responses li').allTextContents();
    const press = (/** @type {string} */ name) => page.getByRole('button', { name }).click();
    await candidate.drag('source 9').to('target 1');
    await candidate.drag('source 8').to('target 2');
    assert.deepEqual(await responses(), ['A1', 'B7']);

    await page.reload();
    await page.locator('#responses li').first().waitFor();
    assert.deepEqual(await responses(), ['A1', 'B7']);

    await press('Reset');
    await press('Cancel');
    assert.deepEqual(await responses(), ['A1', 'B7']);
    await press('Reset');
    await press('OK');
    await page.locator('#responses:empty').waitFor({ state: 'attached' });

    await press('Hand in');
    await press('Cancel');
    candidate = await sitBefore(page);
    await candidate.drag('source 9').to('target 1');
    await candidate.drag('source 8').to('target 2');
    await press('Hand in');
    const [result] = await page.locator('#result').allTextContents();
    assert.match(result, /^0\.25 of 3 points for .*"A1".*"B7"/);

    await page.reload();
    await page.locator('#hand-in:enabled').waitFor();
    assert.deepEqual(await responses(), []);
  });
});

const FENCE = /^(?:<!-- (\S+?)(?:: (\S+))? -->\n)?```\w*\n([^]*?)^```$/gm;

/**
 * The text of a file, or of the piece of it between the lines "// [name]" and "// [/name]", moved to
 * the left edge.
 * @param {string} file
 * @param {string} [name]
 */
async function pieceOf(file, name) {
  const text = await readFile(join(root, file), 'utf8');
  if (!name) return text;
  const [, indent, piece] =
    new RegExp(`^( *)// \\[${name}\\]\n([^]*?)^ *// \\[/${name}\\]$`, 'm').exec(text) ?? [];
  return piece?.replaceAll(new RegExp(`^${indent}`, 'gm'), '');
}

test('the documentation shows code as it stands in the examples', async () => {
  const text = await readFile(join(root, 'docs/embedding.md'), 'utf8');
  const fences = [...text.matchAll(FENCE)];
  assert.equal(fences.length, text.match(/^```\w/gm)?.length);
  for (const [, file, name, code] of fences) {
    assert.ok(file, `no file is named above\n${code}`);
    assert.equal(code, await pieceOf(file, name), `${file}: ${name}`);
  }
});
