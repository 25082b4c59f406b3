/**
 * A server for the pages of this folder: it serves them, the package and the sample items, each file
 * with its type, under a strict content security policy.
 *
 * usage: node serve.js [PORT]
 * Prints its address. Without a port a free one is taken. The package must have been built.
 */
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { extname, resolve, sep } from 'node:path';
import { fileURLToPath } from 'node:url';

const at = (path) => fileURLToPath(new URL(path, import.meta.url));

const FOLDERS = {
  '/package/': at('../../build/web/package'),
  '/items/': at('../../items'),
  '/': at('.'),
};

// [server]
const TYPES = {
  '.bmp': 'image/bmp',
  '.css': 'text/css',
  '.gif': 'image/gif',
  '.html': 'text/html; charset=utf-8',
  '.jpg': 'image/jpeg',
  '.js': 'text/javascript',
  '.png': 'image/png',
  '.wasm': 'application/wasm', // with another type the module is compiled only once it is here
  '.xml': 'text/xml',
};

const POLICY = [
  "default-src 'none'",
  "script-src 'self' 'wasm-unsafe-eval'",
  "style-src 'self'", // for the page; the element needs none
  "img-src 'self'", // where the package and the pictures of items are
  "connect-src 'self'", // where the package and the items are
  // These two may be left out.
  "require-trusted-types-for 'script'",
  'trusted-types dompurify zav-drag-drop',
].join('; ');
// [/server]

/** The file of a url, or undefined for one that leads out of the folders. */
function fileOf(pathname) {
  const [prefix, folder] = Object.entries(FOLDERS).find(([name]) => pathname.startsWith(name));
  const file = resolve(folder, decodeURIComponent(pathname.slice(prefix.length)) || 'index.html');
  return file.startsWith(folder.replace(/[\\/]?$/, sep)) ? file : undefined;
}

const server = createServer(async (request, response) => {
  const { pathname } = new URL(request.url, 'http://localhost');
  if (pathname === '/favicon.ico') return void response.writeHead(204).end(); // browsers ask for it
  try {
    const file = fileOf(pathname);
    const body = await readFile(file);
    const type = TYPES[extname(file)] ?? 'application/octet-stream';
    response.writeHead(200, { 'Content-Type': type, 'Content-Security-Policy': POLICY }).end(body);
  } catch {
    response.writeHead(404).end();
  }
});
server.listen(Number(process.argv[2] ?? 0), '127.0.0.1', () => {
  console.log(`http://127.0.0.1:${server.address().port}/`);
});
