/**
 * Serves the modules of src/ one by one, as they are, under a strict content security policy.
 */

import { createHash } from 'node:crypto';
import { fileURLToPath } from 'node:url';

import { startServer } from './server.js';

// What modules import by the name of a package.
const IMPORT_MAP = JSON.stringify({ imports: { dompurify: '/dompurify/purify.es.mjs' } });

// The map is the only script that stands in the page itself.
const MAP_DIGEST = createHash('sha256').update(IMPORT_MAP).digest('base64');

const POLICY = [
  "default-src 'none'",
  `script-src 'self' 'sha256-${MAP_DIGEST}'`,
  "style-src 'self'",
  "img-src 'self'",
  "connect-src 'self'",
  "require-trusted-types-for 'script'",
  'trusted-types dompurify zav-drag-drop',
].join('; ');

const PAGE = `<!doctype html><html lang="en"><head><meta charset="utf-8"><title>Test</title>
<script type="importmap">${IMPORT_MAP}</script></head><body></body></html>`;

/**
 * The page "/" is empty; a test fills it with what it imports from "/src/...".
 * @param {Record<string, string>} [folders] more folders by the path that they are served under
 * @returns {Promise<import('./server.js').TestServer>}
 */
export function serveModules(folders = {}) {
  return startServer({
    pages: { '/': PAGE },
    folders: {
      '/src/': fileURLToPath(new URL('../../src', import.meta.url)),
      '/dompurify/': fileURLToPath(new URL('../../node_modules/dompurify/dist', import.meta.url)),
      ...folders,
    },
    headers: { 'Content-Security-Policy': POLICY },
  });
}
