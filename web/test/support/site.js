/**
 * Serves what a host of the element serves: the package, the sample items and the pages of hosts, all
 * under a strict content security policy.
 */
import { fileURLToPath } from 'node:url';

import { startServer } from './server.js';

const at = (/** @type {string} */ path) =>
  fileURLToPath(new URL(`../../../${path}`, import.meta.url));

export const POLICY = [
  "default-src 'none'",
  "script-src 'self' 'wasm-unsafe-eval'",
  "style-src 'self'",
  "img-src 'self'",
  "connect-src 'self'",
  "require-trusted-types-for 'script'",
  'trusted-types dompurify zav-drag-drop',
].join('; ');

const HEAD = '<!doctype html><html lang="en"><head><meta charset="utf-8"><title>Test</title>';

/** An empty page that imports nothing. */
export const BARE_PAGE = `${HEAD}<link rel="stylesheet" href="/hosts/page.css"></head><body></body></html>`;

/** A page without an element, in which the classes of hosts/ are known. */
export const HOST_PAGE = `${HEAD}<link rel="stylesheet" href="/hosts/page.css">
<script type="module" src="/hosts/page.js"></script></head><body></body></html>`;

/**
 * @param {Record<string, string>} [folders] folders by the path that they are served under, besides or
 *   instead of the usual ones
 * @param {Record<string, string>} [pages] more pages; "/" is HOST_PAGE
 */
export function serveSite(folders = {}, pages = {}) {
  return startServer({
    folders: {
      '/package/': at('build/web/package'),
      '/items/': at('items'),
      '/hosts/': at('web/test/hosts'),
      ...folders,
    },
    pages: { '/': HOST_PAGE, ...pages },
    headers: { 'Content-Security-Policy': POLICY },
  });
}
