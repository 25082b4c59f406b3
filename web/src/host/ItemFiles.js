/**
 * Brings everything that an item names, before it is initialised: what is missing then is the
 * component's own error, in its place.
 */
import { loadImage } from '../dom/Pictures.js';
import { decodeFile, namedFiles } from './ItemXml.js';

/**
 * What names files by urls.
 * @typedef {object} FileNames
 * @property {(name: string) => string} localizePath
 * @property {(name: string) => string[]} graphicsPaths the urls under which the host's objects name
 *   the picture; usually one
 */

/**
 * Where files are brought to.
 * @typedef {object} FileStore
 * @property {(path: string, bytes: Uint8Array) => void} addFile
 * @property {(path: string, image: HTMLImageElement | null) => void} addPicture null: no picture
 */

/**
 * @param {string} url
 * @returns {Promise<ArrayBuffer | null>} null for what cannot be had
 */
async function fetchFile(url) {
  try {
    const answer = await fetch(url);
    return answer.ok ? await answer.arrayBuffer() : null;
  } catch {
    return null;
  }
}

/**
 * @param {string} url
 * @param {FileStore} store
 */
async function bringFile(url, store) {
  const file = url ? await fetchFile(url) : null;
  if (file) store.addFile(url, new Uint8Array(file));
  return file;
}

/**
 * @param {string} url
 * @param {FileStore} store
 */
async function bringPicture(url, store) {
  try {
    store.addPicture(url, await loadImage(url));
  } catch {
    // Missing, or no picture? These are two errors.
    if (await fetchFile(url)) store.addPicture(url, null);
  }
}

/**
 * @param {Iterable<string>} names
 * @param {FileNames} host
 * @param {FileStore} store
 */
async function bringPictures(names, host, store) {
  const urls = new Set([...names].flatMap((name) => host.graphicsPaths(name)));
  urls.delete('');
  await Promise.all([...urls].map((url) => bringPicture(url, store)));
}

/**
 * @param {string} name
 * @param {FileNames} host
 * @param {FileStore} store
 */
async function bringCase(name, host, store) {
  const [url = ''] = host.graphicsPaths(name);
  const file = await bringFile(url, store);
  if (file) await bringPictures(namedFiles(decodeFile(file)).pictures, host, store);
}

/**
 * @param {string} xml the item
 * @param {FileNames} host
 * @param {FileStore} store
 */
export async function bringFiles(xml, host, store) {
  const { pictures, caseFile } = namedFiles(xml);
  await Promise.all([
    bringFile(host.localizePath('KVStatic.xml'), store),
    bringPictures(pictures, host, store),
    caseFile ? bringCase(caseFile, host, store) : undefined,
  ]);
}
