/**
 * Makes the HTML of a page fit to stand inside the element: of what an item's author wrote, only
 * what shows text and pictures is left. Nothing of it can run, load, link, or show itself outside the
 * box that it is put into, as long as that box clips and is a stacking context of its own.
 *
 * Needs no exception from a strict content security policy. Where trusted types are demanded, the
 * policy of the name "dompurify" must be allowed.
 */

import DOMPurify from 'dompurify';

import { ATTRIBUTES, ELEMENTS, HELD, rewriteTags } from './HtmlTags.js';
import { StyleFilter } from './StyleFilter.js';

const MAX_ELEMENTS = 4000;
// Layout of a browser recurses; nobody writes pages as deep.
const MAX_DEPTH = 100;
const TOO_DEEP = '*>'.repeat(MAX_DEPTH) + '*';

/**
 * @typedef {object} FilteredPage
 * @property {DocumentFragment} content one div of class "body" that stands for the page's body. It
 *   is to be put into a shadow root of its own, as its ids are the author's.
 * @property {CSSStyleSheet | null} sheet the page's style elements, for that shadow root
 */

/**
 * Filters a page, or a piece of one. Of a page beyond two million characters, 4000 elements, 1000
 * pictures or 100 levels the rest is cut; text stays where it can.
 *
 * @param {string} html
 * @param {(name: string) => string | null} pictureUrl the url of a picture that the page names, null
 *   for one that may not be shown
 * @returns {FilteredPage}
 */
export function filterPage(html, pictureUrl) {
  const { markup, styleText } = rewriteTags(html);
  // Not attached to any window: nothing in it loads.
  const body = /** @type {unknown} */ (purifier().sanitize(markup.trim()));
  const styles = new StyleFilter(pictureUrl);
  const content = document.createDocumentFragment();
  content.append(rootOf(/** @type {HTMLElement} */ (body)));
  for (const image of content.querySelectorAll('img')) showPicture(image, styles);
  applyHeld(content, styles);
  return { content, sheet: styleText === '' ? null : styles.sheet(styleText) };
}

/** @type {import('dompurify').DOMPurify | undefined} */
let own;

// Made when first needed: the module can be loaded where there is no window. An instance of our own,
// so that hooks and settings of the page around the element do not mix with these.
function purifier() {
  if (own) return own;
  own = DOMPurify(window);
  own.addHook('beforeSanitizeElements', (node) => {
    if (node.nodeName === 'BODY') cut(/** @type {HTMLElement} */ (node));
  });
  own.setConfig({
    ALLOWED_TAGS: [...ELEMENTS],
    ALLOWED_ATTR: [...ATTRIBUTES],
    // Whatever holds a url waits under another name until it has been looked up.
    ADD_URI_SAFE_ATTR: [...ATTRIBUTES],
    ALLOW_ARIA_ATTR: false,
    ALLOW_DATA_ATTR: false,
    RETURN_DOM: true,
  });
  return own;
}

/** @param {HTMLElement} body */
function cut(body) {
  const elements = body.getElementsByTagName('*');
  if (elements.length < MAX_DEPTH - 1) return; // with html and body too few to stand that deep
  const excess = elements[MAX_ELEMENTS];
  if (excess) {
    const rest = body.ownerDocument.createRange();
    rest.setStartBefore(excess);
    rest.setEnd(body, body.childNodes.length);
    rest.deleteContents();
  }
  for (const deep of body.querySelectorAll(TOO_DEEP)) {
    if (body.contains(deep)) deep.replaceWith(deep.textContent ?? '');
  }
}

/** @param {HTMLElement} body */
function rootOf(body) {
  const root = document.createElement('div');
  root.className = `body ${body.className}`.trim();
  root.style.backgroundColor = colorOf(body.getAttribute('bgcolor'));
  root.style.color = colorOf(body.getAttribute('text'));
  for (const name of ['dir', 'lang', ...Object.values(HELD)]) {
    const value = body.getAttribute(name);
    if (value !== null) root.setAttribute(name, value);
  }
  root.append(...body.childNodes);
  return root;
}

/**
 * @param {string | null} value of an attribute, in which the "#" may be missing
 */
function colorOf(value) {
  return value === null ? '' : value.replace(/^(?=[\da-f]{6}$)/i, '#');
}

/**
 * @param {HTMLImageElement} image
 * @param {StyleFilter} styles
 */
function showPicture(image, styles) {
  const url = styles.picture(image.getAttribute(HELD.src) ?? '');
  if (!url) return image.replaceWith(image.alt);
  image.removeAttribute(HELD.src);
  image.draggable = false;
  image.src = url;
}

/**
 * @param {DocumentFragment} content
 * @param {StyleFilter} styles
 */
function applyHeld(content, styles) {
  const { background, style } = HELD;
  for (const node of content.querySelectorAll(`[${background}], [${style}]`)) {
    const element = /** @type {HTMLElement} */ (node);
    const url = styles.picture(element.getAttribute(background) ?? '');
    if (url) element.style.backgroundImage = `url("${url}")`;
    styles.apply(element, element.getAttribute(style) ?? '');
    element.removeAttribute(background);
    element.removeAttribute(style);
  }
}
