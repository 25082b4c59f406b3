/**
 * An item's XML on the page's side: as the bytes that hosts hand over, and what files it names.
 */
import { readAttributes } from '../dom/HtmlTags.js';

const PICTURE_FILE = /\.(?:avif|bmp|cur|gif|ico|jpe?g|png|svg|webp)$/i;
const PICTURE_ATTRIBUTES = new Set(['ImagePath', 'EmptyImage']);
const IMAGE = /<img(?=[\s/])/gi;
const NO_CASE = 'NONE';
const HTML_PAGE = /^<(?:!doctype html|html)\b/i;
const BEGINNING = 40; // characters

/**
 * Text as the XML parser takes it where the page demands trusted types: its policy must then allow the
 * name "zav-drag-drop". What is parsed belongs to no window, and nothing in it runs or loads.
 * @type {((xml: string) => string) | undefined}
 */
let trusted;

function makeTrust() {
  try {
    const { trustedTypes } = /** @type {any} */ (globalThis);
    const policy = trustedTypes.createPolicy('zav-drag-drop', {
      createHTML: (/** @type {string} */ xml) => xml,
    });
    return (/** @type {string} */ xml) => policy.createHTML(xml);
  } catch {
    // Not known to this browser, or not allowed by a page that does not demand them.
    return (/** @type {string} */ xml) => xml;
  }
}

/**
 * A DOMParser would make a page about what is not well-formed, with styles that break strict policies.
 * @param {string} xml
 * @returns {Element | null} the document element; null for text that is not well-formed
 */
export function parse(xml) {
  trusted ??= makeTrust();
  const holder = document.implementation.createDocument(null, 'holder').documentElement;
  try {
    holder.innerHTML = trusted(xml.replace(/^[\uFEFF\s]*(<\?xml\s[^>]*\?>)?/, ''));
  } catch {
    return null;
  }
  return holder.childElementCount === 1 && !hasText(holder) ? holder.firstElementChild : null;
}

/**
 * Whether something is written between the children of an element.
 * @param {Element} element
 */
export function hasText(element) {
  return [...element.childNodes].some((node) => node instanceof Text && node.data.trim() !== '');
}

/**
 * What a file is, in words, that should be XML and surely is none; empty for others. Servers answer
 * with pages of their own where they have no file.
 * @param {string} text
 */
export function otherThanXml(text) {
  const beginning = text.trimStart().slice(0, BEGINNING);
  if (!beginning) return 'an empty file';
  if (HTML_PAGE.test(beginning)) return 'an HTML page';
  return beginning.startsWith('<') ? '' : `"${beginning}"`;
}

/**
 * Text as UTF-16LE bytes without a byte-order mark.
 * @param {string} text
 */
export function toBytes(text) {
  const bytes = new Uint8Array(text.length * 2);
  const view = new DataView(bytes.buffer);
  for (let i = 0; i < text.length; i++) view.setUint16(i * 2, text.charCodeAt(i), true);
  return bytes;
}

/**
 * The text of UTF-16LE bytes, up to the first NUL.
 * @param {Uint8Array} bytes
 */
export function toText(bytes) {
  const text = new TextDecoder('utf-16le').decode(bytes);
  const end = text.indexOf('\0');
  return end < 0 ? text : text.slice(0, end);
}

/**
 * The text of an XML file in UTF-8 or UTF-16.
 * @param {Uint8Array} file
 */
export function decodeFile(file) {
  const [first, second] = file;
  if (first === 0xff && second === 0xfe) return new TextDecoder('utf-16le').decode(file);
  if (first === 0xfe && second === 0xff) return new TextDecoder('utf-16be').decode(file);
  return new TextDecoder().decode(file);
}

/**
 * The item in another language. Text that is not well-formed stays as it is.
 * @param {string} xml
 * @param {string} language
 */
export function withLanguage(xml, language) {
  const item = parse(xml);
  if (!item) return xml;
  item.setAttribute('Language', language);
  return new XMLSerializer().serializeToString(item);
}

/**
 * The files that an item or a case names: pictures in attributes and in HTML, and the case's file.
 * @param {string} xml
 * @returns {{pictures: Set<string>, caseFile: string}}
 */
export function namedFiles(xml) {
  /** @type {Set<string>} */
  const pictures = new Set();
  const item = parse(xml);
  if (!item) return { pictures, caseFile: '' };
  for (const element of [item, ...item.getElementsByTagName('*')]) {
    for (const { name, value } of element.attributes) {
      if (value && (PICTURE_ATTRIBUTES.has(name) || PICTURE_FILE.test(value))) pictures.add(value);
    }
    if (element.childElementCount === 0) addHtmlPictures(element.textContent ?? '', pictures);
  }
  const caseCode = item.getAttribute('CaseCode') ?? NO_CASE;
  return { pictures, caseFile: caseCode && caseCode !== NO_CASE ? `${caseCode}.xml` : '' };
}

/**
 * @param {string} html
 * @param {Set<string>} pictures
 */
function addHtmlPictures(html, pictures) {
  for (IMAGE.lastIndex = 0; IMAGE.test(html);) {
    IMAGE.lastIndex = readAttributes(html, IMAGE.lastIndex, (name, value) => {
      if (name === 'src' && value) pictures.add(value);
    });
  }
}
