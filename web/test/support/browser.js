/**
 * Chromium for tests. The environment variable CHROMIUM names the program where it is not in its
 * usual place.
 */

import { chromium } from 'playwright-core';

/**
 * One browser serves all tests of a file; its opener closes it.
 * @returns {Promise<import('playwright-core').Browser>}
 */
export function launchBrowser() {
  return chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox'],
    // Scroll bars take room, as they do for users.
    ignoreDefaultArgs: ['--hide-scrollbars'],
  });
}

/**
 * What went on in a page, in its own order.
 * @typedef {object} PageRecord
 * @property {string[]} errors exceptions nobody caught, and errors in the console
 * @property {string[]} violations of the page's content security policy: directive, blocked url, sample
 * @property {string[]} requests urls asked for
 */

/**
 * Opens a page in a context of its own, whose opener closes it.
 * @param {import('playwright-core').Browser} browser
 * @param {string} url
 * @param {import('playwright-core').BrowserContextOptions} [options]
 * @returns {Promise<{page: import('playwright-core').Page, record: PageRecord}>}
 */
export async function openPage(browser, url, options) {
  const context = await browser.newContext({ viewport: { width: 900, height: 640 }, ...options });
  const page = await context.newPage();
  /** @type {PageRecord} */
  const record = { errors: [], violations: [], requests: [] };
  page.on('pageerror', (error) => record.errors.push(String(error)));
  page.on('console', (message) => {
    if (message.type() === 'error') record.errors.push(message.text());
  });
  page.on('request', (request) => record.requests.push(request.url()));
  await page.exposeFunction('recordViolation', (/** @type {string} */ text) => {
    record.violations.push(text);
  });
  await page.addInitScript(() => {
    addEventListener('securitypolicyviolation', (event) => {
      const text = `${event.effectiveDirective} ${event.blockedURI} ${event.sample}`;
      /** @type {any} */ (window).recordViolation(text);
    });
  });
  await page.goto(url);
  return { page, record };
}
