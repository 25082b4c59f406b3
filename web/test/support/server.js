/**
 * A small server of files for tests, on a free port of this machine only.
 */

import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import path from 'node:path';

const TYPES = new Map([
  ['.bmp', 'image/bmp'],
  ['.css', 'text/css'],
  ['.gif', 'image/gif'],
  ['.html', 'text/html; charset=utf-8'],
  ['.jpg', 'image/jpeg'],
  ['.js', 'text/javascript'],
  ['.json', 'application/json'],
  ['.mjs', 'text/javascript'],
  ['.png', 'image/png'],
  ['.wasm', 'application/wasm'],
  ['.xml', 'text/xml'],
]);

/**
 * @typedef {object} TestServer
 * @property {string} origin "http://127.0.0.1:port"
 * @property {() => Promise<void>} close
 */

/**
 * @param {object} site
 * @param {Record<string, string>} [site.folders] folders by the path that they are served under, which
 *   begins and ends with "/". A file outside them is not found.
 * @param {Record<string, string>} [site.pages] texts of HTML pages by their path
 * @param {Record<string, string>} [site.headers] sent with every answer, as a content security policy
 * @returns {Promise<TestServer>}
 */
export async function startServer({ folders = {}, pages = {}, headers = {} }) {
  const server = createServer(async (request, response) => {
    for (const [name, value] of Object.entries(headers)) response.setHeader(name, value);
    const url = new URL(request.url ?? '/', 'http://localhost');
    // Browsers ask for it on their own, and would report that there is none.
    if (url.pathname === '/favicon.ico') return void response.writeHead(204).end();
    try {
      const type = Object.hasOwn(pages, url.pathname) ? '.html' : path.extname(url.pathname);
      const body = pages[url.pathname] ?? (await readFile(fileOf(folders, url.pathname)));
      response.setHeader('Content-Type', TYPES.get(type) ?? 'application/octet-stream');
      response.end(body);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(undefined)));
  const { port } = /** @type {import('node:net').AddressInfo} */ (server.address());
  return {
    origin: `http://127.0.0.1:${port}`,
    close: async () => {
      server.closeAllConnections();
      await new Promise((resolve) => server.close(resolve));
    },
  };
}

/**
 * @param {Record<string, string>} folders
 * @param {string} pathname
 */
function fileOf(folders, pathname) {
  for (const [prefix, folder] of Object.entries(folders)) {
    if (!pathname.startsWith(prefix)) continue;
    const file = path.resolve(folder, decodeURIComponent(pathname.slice(prefix.length)));
    if (file.startsWith(path.resolve(folder) + path.sep)) return file;
  }
  throw new Error(`${pathname} is in no folder that is served`);
}
