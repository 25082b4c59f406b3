/**
 * Pages with items in them, and who sits before them.
 */
import { openPage } from './browser.js';
import { Candidate, countTimers } from './candidate.js';

/**
 * A page in which nothing stands yet, and hosts are known; its opener closes its context.
 * @param {import('playwright-core').Browser} browser
 * @param {import('./server.js').TestServer} server
 * @param {import('playwright-core').BrowserContextOptions} [options]
 */
export async function openExam(browser, server, options) {
  const opened = await openPage(browser, `${server.origin}/`, {
    viewport: { width: 1100, height: 800 },
    ...options,
  });
  await opened.page.addInitScript(countTimers);
  await opened.page.reload();
  return opened;
}

/**
 * Shows an item folder in an element of its own, 1024 by 768 pixels large, that is its own host.
 * @param {import('playwright-core').Page} page
 * @param {string} [item]
 * @param {string} [options] words
 */
export async function showItem(page, item = 'heart', options = 'calculator') {
  const folder = `/items/${item}/`;
  const host = await page.evaluateHandle(() => new window.ExamHost());
  await host.evaluate((each, given) => each.showFolder(...given), [folder, options]);
  const element = await host.evaluateHandle((each) => each.element);
  return { host, element, candidate: await Candidate.of(page, element, `${folder}item.xml`) };
}
