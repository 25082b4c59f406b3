/**
 * Pictures for the documentation, taken in Chromium: every sample as it begins, during a drag and
 * answered, and the page that `zavdragdrop serve` shows.
 *
 * usage: node screenshots.js FOLDER
 * The package and the program must have been built. What is kept is compressed first, by hand (pngquant,
 * optipng).
 */
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

import { launchBrowser, openPage } from '../test/support/browser.js';
import { Candidate } from '../test/support/candidate.js';
import { openExam, showItem } from '../test/support/exam.js';
import { serveSite } from '../test/support/site.js';

const root = fileURLToPath(new URL('../..', import.meta.url));
const PROGRAM = join(root, 'build/native/bin/zavdragdrop');
const ITEM_SIZE = { width: 1024, height: 768 };
const PLAYER_SIZE = { width: 1440, height: 900 };
const GLIDE_MS = 3000;

/**
 * Drags are written "source to target".
 * @typedef {object} Sample
 * @property {string} item the name of its folder
 * @property {string[]} before what is placed when the drag that is shown begins
 * @property {[source: string, place: string]} dragged
 * @property {string[]} answered what is placed in the last picture
 */

/** @type {Sample[]} */
const SAMPLES = [
  {
    item: 'heart',
    before: ['9 1', '6 2'],
    dragged: ['source 7', 'target 3'],
    answered: ['9 1', '6 2', '7 3', '1 4', '2 5', '3 6'],
  },
  {
    item: 'circuit',
    before: ['3 1', '1 2'],
    dragged: ['source 4', 'target 3'],
    answered: ['3 1', '1 2', '4 3', '2 4', '2 5', '8 6', '10 7', '7 8', '7 9'],
  },
  {
    item: 'elements',
    before: ['3 1', '6 2', '4 3', '5 4'],
    dragged: ['source 10', 'target 6'],
    answered: ['3 1', '6 2', '4 3', '5 4', '10 6', '9 7', '12 8'],
  },
  {
    item: 'ledger',
    before: ['1 1', '5 2', '2 3'],
    dragged: ['source 6', 'target 4'],
    answered: [
      ...['1 1', '5 2', '2 3', '6 4', '8 5', '1 6', '1 7', '9 8', '7 9', '9 10', '6 11', '1 12'],
    ],
  },
];

/**
 * @param {import('playwright-core').Browser} browser
 * @param {import('../test/support/server.js').TestServer} site
 * @param {Sample} sample
 * @param {string} folder
 */
async function shootItem(browser, site, { item, before, dragged, answered }, folder) {
  const { page } = await openExam(browser, site, { viewport: ITEM_SIZE });
  const { candidate } = await showItem(page, item, '');
  const place = async (/** @type {string[]} */ pairs) => {
    for (const pair of pairs) {
      const [source, target] = pair.split(' ');
      await candidate.drag(`source ${source}`).to(`target ${target}`);
      await candidate.wait(GLIDE_MS);
    }
  };
  const shoot = async (/** @type {string} */ moment) => {
    await page.screenshot({ path: join(folder, `${item}-${moment}.png`) });
  };

  await shoot('before');
  await place(before);
  const [source, target] = dragged;
  await candidate.press(source);
  await candidate.moveTo(target);
  // A little beside it, so that what is dragged is seen to hang over its target.
  const { x, y } = await candidate.placeOf(target, { mayBeCovered: true });
  await page.mouse.move(x + 14, y + 10);
  await shoot('dragging');
  await candidate.release();
  await candidate.wait(GLIDE_MS);
  await place(answered.slice(before.length + 1));
  await page.mouse.move(0, 0);
  await shoot('answered');
  await page.context().close();
}

/**
 * @param {import('playwright-core').Browser} browser
 * @param {string} folder
 */
async function shootPlayer(browser, folder) {
  const program = spawn(PROGRAM, ['serve', '--port', '0', join(root, 'items')], {
    stdio: ['ignore', 'pipe', 'inherit'],
  });
  try {
    const [text] = await once(program.stdout, 'data');
    const [address] = /http:\S+/.exec(String(text)) ?? [''];
    const { page } = await openPage(browser, `${address}#circuit`, { viewport: PLAYER_SIZE });
    await page.locator('zav-drag-drop[src]').waitFor();
    await page.evaluate(() => document.querySelector('zav-drag-drop').ready);
    const element = await page.locator('zav-drag-drop').elementHandle();
    const candidate = await Candidate.of(page, element, '/items/circuit/item.xml');
    for (const pair of ['3 1', '1 2', '4 3', '8 6']) {
      const [source, target] = pair.split(' ');
      await candidate.drag(`source ${source}`).to(`target ${target}`);
    }
    await page.mouse.move(0, 0);
    await page.screenshot({ path: join(folder, 'player.png') });
  } finally {
    program.kill();
  }
}

const [folder] = process.argv.slice(2);
if (!folder) {
  console.error('usage: node screenshots.js FOLDER');
  process.exit(2);
}
const site = await serveSite();
const browser = await launchBrowser();
for (const sample of SAMPLES) await shootItem(browser, site, sample, folder);
await shootPlayer(browser, folder);
await browser.close();
await site.close();
