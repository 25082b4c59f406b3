/**
 * Bundles the npm package from the sources here and the WebAssembly module.
 *
 * usage: node build-package.js BUILD PACKAGE
 * BUILD is the folder of the web build; PACKAGE is emptied and filled.
 */
import { cp, mkdir, readdir, readFile, rm, writeFile } from 'node:fs/promises';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import esbuild from 'esbuild';

const web = fileURLToPath(new URL('..', import.meta.url));
const artwork = join(web, '../src/form/artwork');

// The oldest browsers that have WebAssembly exceptions and all else that the element needs.
const target = ['chrome120', 'firefox120', 'safari17'];

/** Bundles one source into one file of the package; what is external stays an import. */
async function bundle(source, output, external = []) {
  await esbuild.build({
    entryPoints: [join(web, 'src', source)],
    outfile: output,
    bundle: true,
    minify: true,
    format: 'esm',
    legalComments: 'none',
    logLevel: 'warning',
    external,
    target,
  });
}

/** The package's description: ours without what only its developers need. */
async function writeDescription(output) {
  const description = JSON.parse(await readFile(join(web, 'package.json'), 'utf8'));
  delete description.devDependencies;
  delete description.scripts;
  await writeFile(output, `${JSON.stringify(description, null, 2)}\n`);
}

async function copyArtwork(folder) {
  await mkdir(folder);
  for (const name of await readdir(artwork)) {
    if (/\.(bmp|png)$/.test(name)) await cp(join(artwork, name), join(folder, name));
  }
}

/** What the authors of bundled code ask to be passed on. */
async function writeLicences(output, build) {
  const bundled = {
    DOMPurify: join(web, 'node_modules/dompurify/LICENSE'),
    Expat: join(build, 'expat/COPYING'),
    musl: '/usr/share/emscripten/system/lib/libc/musl/COPYRIGHT',
  };
  let text = 'This package contains code of others, under these licences.\n';
  for (const [name, file] of Object.entries(bundled)) {
    text += `\n${name}\n${'='.repeat(name.length)}\n\n${await readFile(file, 'utf8')}`;
  }
  await writeFile(output, text);
}

async function buildPackage(build, folder) {
  await rm(folder, { recursive: true, force: true });
  await mkdir(folder, { recursive: true });
  const inPackage = (name) => join(folder, name);
  await Promise.all([
    bundle('define.js', inPackage('zav-drag-drop.js'), ['./ZavDragDropElement.js']),
    bundle('ZavDragDropElement.js', inPackage('ZavDragDropElement.js')),
    cp(join(build, 'bin/zavdragdrop.wasm'), inPackage('zav-drag-drop.wasm')),
    cp(join(web, 'src/zav-drag-drop.d.ts'), inPackage('zav-drag-drop.d.ts')),
    cp(join(web, 'README.md'), inPackage('README.md')),
    copyArtwork(inPackage('artwork')),
    writeLicences(inPackage('LICENSES.txt'), build),
    writeDescription(inPackage('package.json')),
  ]);
}

const [build, folder] = process.argv.slice(2);
if (!folder) {
  console.error('usage: node build-package.js BUILD PACKAGE');
  process.exit(2);
}
try {
  await buildPackage(build, folder);
} catch (error) {
  if (!error.errors) console.error(error.message); // the bundler has said what it found
  process.exitCode = 1;
}
