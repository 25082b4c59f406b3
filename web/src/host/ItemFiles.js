/**
 * Brings everything that an item names, before it is initialised: what is missing then is the
 * component's own error, in its place.
 */
import { loadImage } from '../dom/Pictures.js';
import { keepLatest } from '../keepLatest.js';
import { decodeFile, namedFiles } from './ItemXml.js';

/**
 * What names files by urls.
 * @typedef {object} FileNames
 * @property {(name: string) => string} localizePath
 * @property {(name: string) => string[]} graphicsPaths the urls under which the host's objects name
 *   the picture; usually one
 */

/**
 * What was brought, by urls. A picture that is null is none, although there is something.
 * @typedef {{files: Map<string, Uint8Array>, pictures: Map<string, HTMLImageElement | null>}} Brought
 */

const MOST_TEXTS = 16;

/**
 * Files of texts by their urls, the one used longest ago first: the same one serves many items.
 * @type {Map<string, Promise<Uint8Array | null>>}
 */
const texts = new Map();

/**
 * @param {string} url
 * @returns {Promise<Uint8Array | null>} null for what cannot be had
 */
async function fetchFile(url) {
  try {
    const answer = await fetch(url);
    return answer.ok ? new Uint8Array(await answer.arrayBuffer()) : null;
  } catch {
    return null;
  }
}

/**
 * What could not be had is asked for again by the next item.
 * @param {string} url
 */
async function fetchTexts(url) {
  const file = texts.get(url) ?? fetchFile(url);
  keepLatest(texts, url, file, MOST_TEXTS);
  if (!(await file)) texts.delete(url);
  return file;
}

/**
 * @param {string} url
 * @param {Brought} brought
 * @param {(url: string) => Promise<Uint8Array | null>} bring
 */
async function bringFile(url, brought, bring) {
  const file = url ? await bring(url) : null;
  if (file) brought.files.set(url, file);
  return file;
}

/**
 * @param {string} url
 * @param {Promise<HTMLImageElement>} loading
 * @param {Brought} brought
 */
async function awaitPicture(url, loading, brought) {
  try {
    brought.pictures.set(url, await loading);
  } catch {
    // Missing, or no picture? These are two errors.
    if (await fetchFile(url)) brought.pictures.set(url, null);
  }
}

/**
 * @param {Iterable<string>} names
 * @param {FileNames} host
 * @param {Brought} brought
 */
async function bringPictures(names, host, brought) {
  const urls = new Set([...names].flatMap((name) => host.graphicsPaths(name)));
  urls.delete('');
  const waiting = [];
  for (const url of urls) {
    const image = loadImage(url);
    if (image instanceof Promise) waiting.push(awaitPicture(url, image, brought));
    else brought.pictures.set(url, image);
  }
  await Promise.all(waiting);
}

/**
 * @param {string} name
 * @param {FileNames} host
 * @param {Brought} brought
 */
async function bringCase(name, host, brought) {
  const [url = ''] = host.graphicsPaths(name);
  const file = await bringFile(url, brought, fetchFile);
  if (file) await bringPictures(namedFiles(decodeFile(file)).pictures, host, brought);
}

/**
 * @param {string} xml the item
 * @param {FileNames} host
 * @returns {Promise<Brought>}
 */
export async function bringFiles(xml, host) {
  const { pictures, caseFile } = namedFiles(xml);
  /** @type {Brought} */
  const brought = { files: new Map(), pictures: new Map() };
  const textsUrl = host.localizePath('KVStatic.xml');
  await Promise.all([
    bringPictures(pictures, host, brought), // first, as they take longest
    bringFile(textsUrl, brought, fetchTexts),
    caseFile ? bringCase(caseFile, host, brought) : undefined,
  ]);
  return brought;
}
