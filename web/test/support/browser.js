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

/**
 * A page that can load the modules of this package one by one, under a strict content security policy.
 * @param {Record<string, string>} imports urls by the names that the modules import
 * @param {Record<string, string>} directives more of the policy
 * @returns {Promise<{html: string, policy: string}>}
 */
export async function modulePage(imports = {}, directives = {}) {
  const map = JSON.stringify({ imports });
  const digest = await crypto.subtle.digest('SHA-256', new TextEncoder().encode(map));
  const policy = {
    'default-src': "'none'",
    // The map is the only script that stands in the page itself.
    'script-src': `'self' 'sha256-${Buffer.from(digest).toString('base64')}'`,
    'style-src': "'self'",
    'img-src': "'self'",
    'connect-src': "'self'",
    'require-trusted-types-for': "'script'",
    'trusted-types': 'dompurify',
    ...directives,
  };
  return {
    html: `<!doctype html><html lang="en"><head><meta charset="utf-8"><title>Test</title>
<script type="importmap">${map}</script></head><body></body></html>`,
    policy: Object.entries(policy)
      .map(([name, value]) => `${name} ${value}`)
      .join('; '),
  };
}
