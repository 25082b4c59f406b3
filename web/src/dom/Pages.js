/**
 * HTML of an item: pages in panes, and rich text. Whatever comes from an item passes the filter, and
 * lives in a shadow root of its own. Measures are CSS pixels.
 */
import { FilteredPages } from './FilteredPages.js';
import { applyFont, cssFont } from './fonts.js';
import { pageStyles } from './styles.js';

/**
 * @typedef {object} RichContent
 * @property {boolean} isHtml
 * @property {string} text
 * @property {import('./fonts.js').Font} font
 */

const filtered = new FilteredPages();
document.fonts.addEventListener('loadingdone', () => filtered.forgetHeights());

/**
 * Shows filtered HTML in an element, which has its own shadow root from then on.
 * @param {HTMLElement} host
 * @param {string} html
 * @param {import('./Pictures.js').Pictures} pictures
 */
function showHtml(host, html, pictures) {
  const root = host.shadowRoot ?? host.attachShadow({ mode: 'open' });
  const { content, sheet, heights } = filtered.take(html, (name) => pictures.urlAt(name));
  root.adoptedStyleSheets = sheet ? [pageStyles(), sheet] : [pageStyles()];
  const page = document.createElement('div');
  page.className = 'page';
  page.append(content);
  root.replaceChildren(page);
  return { page, heights };
}

/** A pane: from the first page that is loaded into it until it is dropped. */
class Pane {
  /** @type {HTMLElement | undefined} */
  #page;
  #margin = 0;
  #font = '';
  /** @type {import('./FilteredPages.js').Heights} */
  #heights = new Map();

  constructor() {
    this.element = document.createElement('div');
  }

  /**
   * @param {string} html
   * @param {import('./Pictures.js').Pictures} pictures
   */
  load(html, pictures) {
    const { page, heights } = showHtml(this.element, html, pictures);
    this.#page = page;
    this.#heights = heights;
    this.#applyMargin();
  }

  /** @param {number} pixels */
  setMargin(pixels) {
    this.#margin = pixels;
    this.#applyMargin();
  }

  /** @param {import('./fonts.js').Font} font */
  setFont(font) {
    applyFont(this.element, font);
    this.#font = cssFont(font);
  }

  /**
   * How high the page is when it is laid out that wide.
   * @param {number} width
   * @param {number} margin
   */
  contentHeight(width, margin) {
    const page = this.#page;
    if (!page) return 0;
    const key = `${width} ${margin} ${devicePixelRatio} ${this.#font}`;
    let height = this.#heights.get(key);
    if (height === undefined) {
      this.element.classList.add('measured');
      page.style.width = `${width}px`;
      page.style.height = 'auto';
      page.style.padding = `${margin}px`;
      height = Math.ceil(page.offsetHeight);
      this.element.classList.remove('measured');
      page.style.width = '';
      this.#applyMargin();
      this.#heights.set(key, height);
    }
    return height;
  }

  // A page is at least as high as its pane, for what is laid out in parts of the whole height.
  #applyMargin() {
    if (!this.#page) return;
    this.#page.style.padding = this.#margin ? `${this.#margin}px` : '';
    this.#page.style.height = '100%';
  }
}

export class Pages {
  /** @type {Map<number, Pane>} */
  #panes = new Map();
  /** @type {Map<string, number>} */
  #heights = new Map();
  /** @type {HTMLElement | undefined} */
  #measure;
  #lobby;
  #pictures;

  /**
   * @param {HTMLElement} lobby where panes are laid out until they come into sight
   * @param {import('./Pictures.js').Pictures} pictures
   */
  constructor(lobby, pictures) {
    this.#lobby = lobby;
    this.#pictures = pictures;
  }

  /** @param {number} id */
  pane(id) {
    let pane = this.#panes.get(id);
    if (!pane) {
      pane = new Pane();
      this.#panes.set(id, pane);
      this.#lobby.append(pane.element);
    }
    return pane;
  }

  /**
   * @param {number} id
   * @param {string} html
   */
  load(id, html) {
    this.pane(id).load(html, this.#pictures);
  }

  /** @param {number} id */
  drop(id) {
    this.#panes.get(id)?.element.remove();
    this.#panes.delete(id);
  }

  /**
   * @param {number} id
   * @param {number} width
   * @param {number} margin
   */
  contentHeight(id, width, margin) {
    return this.#panes.get(id)?.contentHeight(width, margin) ?? 0;
  }

  /** @param {number} id */
  scrollTop(id) {
    return Math.round(this.#panes.get(id)?.element.scrollTop ?? 0);
  }

  /**
   * @param {HTMLElement} element
   * @param {boolean} isHtml
   * @param {string} text
   */
  showRichText(element, isHtml, text) {
    if (!isHtml) {
      element.replaceChildren(text);
      return;
    }
    const formatted = document.createElement('div');
    formatted.className = 'formatted';
    showHtml(formatted, text, this.#pictures);
    element.replaceChildren(formatted);
  }

  /**
   * @param {RichContent} content
   * @param {number} width
   */
  richTextHeight(content, width) {
    const { points, style, name } = content.font;
    const key = [content.isHtml, width, points, style, name, content.text].join('\n');
    let height = this.#heights.get(key);
    if (height === undefined) {
      height = this.#measureRichText(content, width);
      this.#heights.set(key, height);
    }
    return height;
  }

  /**
   * @param {RichContent} content
   * @param {number} width
   */
  #measureRichText(content, width) {
    const element = (this.#measure ??= this.#lobby.appendChild(document.createElement('div')));
    element.className = 'control rich measured';
    element.style.width = `${width}px`;
    applyFont(element, content.font);
    this.showRichText(element, content.isHtml, content.text);
    return Math.ceil(element.offsetHeight);
  }
}
