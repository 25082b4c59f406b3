/**
 * Pages that have passed the filter, for as long as they are likely to come again: the frame around
 * an item is the same in every item, and filtering takes longer than copying.
 */
import { keepLatest } from '../keepLatest.js';
import { filterPage } from './HtmlFilter.js';

const MOST_PAGES = 64;
const MOST_CHARACTERS = 20_000;

/**
 * @typedef {(name: string) => string | null} PictureUrl
 * @typedef {Map<string, number>} Heights how high a page is, by what its height depends on
 * @typedef {{content: DocumentFragment, sheet: CSSStyleSheet | null,
 *   urls: Map<string, string | null>, heights: Heights}} KeptPage urls: what was answered for the
 *   pictures that the page names
 */

export class FilteredPages {
  /** @type {Map<string, KeptPage>} the page used longest ago first */
  #kept = new Map();

  /**
   * The page, filtered; its content is the caller's. Its heights are known to everybody who shows the
   * same page, unless it has pictures, which may come later.
   * @param {string} html
   * @param {PictureUrl} pictureUrl
   * @returns {{content: Node, sheet: CSSStyleSheet | null, heights: Heights}}
   */
  take(html, pictureUrl) {
    const known = this.#kept.get(html);
    const page = known && isCurrent(known, pictureUrl) ? known : filter(html, pictureUrl);
    this.#keep(html, page);
    const heights = page.content.querySelector('img') ? new Map() : page.heights;
    return { content: page.content.cloneNode(true), sheet: page.sheet, heights };
  }

  /** For when something changes that heights depend on everywhere. */
  forgetHeights() {
    for (const { heights } of this.#kept.values()) heights.clear();
  }

  /**
   * @param {string} html
   * @param {KeptPage} page
   */
  #keep(html, page) {
    if (html.length <= MOST_CHARACTERS) keepLatest(this.#kept, html, page, MOST_PAGES);
  }
}

/**
 * @param {KeptPage} page
 * @param {PictureUrl} pictureUrl
 */
function isCurrent(page, pictureUrl) {
  return [...page.urls].every(([name, url]) => pictureUrl(name) === url);
}

/**
 * @param {string} html
 * @param {PictureUrl} pictureUrl
 * @returns {KeptPage}
 */
function filter(html, pictureUrl) {
  /** @type {Map<string, string | null>} */
  const urls = new Map();
  const page = filterPage(html, (name) => {
    const url = pictureUrl(name);
    urls.set(name, url);
    return url;
  });
  return { ...page, urls, heights: new Map() };
}
