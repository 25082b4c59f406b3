/**
 * What a page downloads of the package before it shows an item, compressed as a server would.
 * Prints a table; ends with 1 where the sum is too much.
 *
 * usage: node check-size.js PACKAGE
 */
import { readdir, readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { gzipSync } from 'node:zlib';

const mostBytes = 166_000;

function row(name, plain, compressed) {
  console.log(name.padEnd(28), String(plain).padStart(8), String(compressed).padStart(8));
}

const [folder] = process.argv.slice(2);
if (!folder) {
  console.error('usage: node check-size.js PACKAGE');
  process.exit(2);
}
row('', 'bytes', 'gzip -9');
const sum = { plain: 0, compressed: 0 };
for (const name of (await readdir(folder)).sort()) {
  if (!/\.(js|wasm|css)$/.test(name)) continue;
  const bytes = await readFile(join(folder, name));
  const compressed = gzipSync(bytes, { level: 9 }).length;
  row(name, bytes.length, compressed);
  sum.plain += bytes.length;
  sum.compressed += compressed;
}
row('together', sum.plain, sum.compressed);
console.log(`at most ${mostBytes} compressed bytes are allowed`);
if (sum.compressed >= mostBytes) {
  console.log(`too large by ${sum.compressed - mostBytes + 1} bytes`);
  process.exit(1);
}
