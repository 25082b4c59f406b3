/**
 * Takes over styles of pages: harmless properties with harmless values, and pictures only from where
 * the page's owner keeps them. All that a browser made of an author's text is read back property by
 * property, so that neither escapes nor comments in the text can hide anything.
 */

import { keepLatest } from '../keepLatest.js';
import { withFallback } from './fonts.js';

const MAX_RULES = 500;
const MAX_SELECTOR = 200; // characters

// Elements, classes, ids, and one inside the other: what the authors' tools write. With more than
// these, a selector can reach out of the page or take a browser very long to match.
const SELECTOR = /^[\w\s.#*,\u0080-\uffff-]+$/;

const PROPERTY_FAMILY =
  /^(?:background|border|font|list-style|margin|overflow|padding|text-(?:align|decoration|indent|transform|wrap)|white-space)(?:-|$)/;

const PROPERTIES = new Set(
  (
    'bottom caption-side clear color direction display empty-cells float height left letter-spacing ' +
    'line-height max-height max-width min-height min-width opacity overflow-wrap position right ' +
    'table-layout top unicode-bidi vertical-align visibility width word-break word-spacing z-index'
  ).split(' '),
);

const POSITION = /^(?:static|relative|absolute)$/;
const URL_IN_TEXT = /url\(\s*(?:"([^"]*)"|'([^']*)'|([^"'()]*))\s*\)/gi;
const URL_IN_VALUE = /url\("?([^"()\\]*)"?\)/g;
const HARMLESS_FUNCTION = /\b(?:rgba?|hsla?|calc)\(/g;

const MOST_SHEETS = 32;
const MOST_CHARACTERS = 10_000;

/**
 * Sheets by the text that they were made from, the oldest first: many pages have the same style.
 * @type {Map<string, CSSStyleSheet | null>}
 */
const sheets = new Map();

export class StyleFilter {
  #pictureUrl;
  /** @type {Set<string>} */
  #pictures = new Set();
  #scratch = document.createElement('span');

  /** @param {(name: string) => string | null} pictureUrl where a picture is, null for an unknown one */
  constructor(pictureUrl) {
    this.#pictureUrl = pictureUrl;
  }

  /**
   * @param {string} name as the page gives it
   * @returns {string | null} a complete url
   */
  picture(name) {
    const url = name.trim() && this.#pictureUrl(name.trim());
    if (!url) return null;
    const href = new URL(url, document.baseURI).href;
    this.#pictures.add(href);
    return href;
  }

  /**
   * Gives an element the declarations of a style attribute.
   * @param {HTMLElement} element
   * @param {string} declarations
   */
  apply(element, declarations) {
    this.#scratch.style.cssText = this.#resolve(declarations);
    this.#copy(this.#scratch.style, element.style);
  }

  /**
   * @param {string} text of style elements
   * @returns {CSSStyleSheet | null} null where no rule is left. html and body stand for the page's own
   *   root, a div of class "body".
   */
  sheet(text) {
    const resolved = this.#resolve(text);
    const known = sheets.get(resolved);
    if (known !== undefined) return known;
    const made = this.#makeSheet(resolved);
    if (resolved.length <= MOST_CHARACTERS) keepLatest(sheets, resolved, made, MOST_SHEETS);
    return made;
  }

  /** @param {string} text with complete urls */
  #makeSheet(text) {
    const source = new CSSStyleSheet();
    source.replaceSync(text);
    const sheet = new CSSStyleSheet();
    for (const rule of [...source.cssRules].slice(0, MAX_RULES)) {
      if (!(rule instanceof CSSStyleRule) || !isPlain(rule.selectorText)) continue;
      const index = sheet.insertRule(`${withinRoot(rule.selectorText)} {}`, sheet.cssRules.length);
      this.#copy(rule.style, /** @type {CSSStyleRule} */ (sheet.cssRules[index]).style);
    }
    return sheet.cssRules.length > 0 ? sheet : null;
  }

  /**
   * Replaces names of pictures by their urls before a browser sees them: only then does every browser
   * give back the same url when it is asked for the value.
   * @param {string} text
   */
  #resolve(text) {
    return text.replace(URL_IN_TEXT, (_, quoted, single, bare) => {
      const url = this.picture(quoted ?? single ?? bare);
      return url ? `url("${url}")` : 'none';
    });
  }

  /**
   * @param {CSSStyleDeclaration} from
   * @param {CSSStyleDeclaration} to
   */
  #copy(from, to) {
    for (const name of from) {
      const value = from.getPropertyValue(name);
      if (!this.#isHarmless(name, value)) continue;
      const shown = name === 'font-family' ? withFallback(value) : value;
      to.setProperty(name, shown, from.getPropertyPriority(name));
    }
  }

  /**
   * @param {string} name
   * @param {string} value
   */
  #isHarmless(name, value) {
    if (!PROPERTIES.has(name) && !PROPERTY_FAMILY.test(name)) return false;
    if (name === 'position' && !POSITION.test(value)) return false;
    // A value may bring in something else only by a function, or by a character escaped into one.
    const rest = value
      .replace(URL_IN_VALUE, (whole, url) => (this.#pictures.has(url) ? '' : whole))
      .replace(HARMLESS_FUNCTION, '');
    return !/[(\\]/.test(rest);
  }
}

/** @param {string} selector */
function isPlain(selector) {
  return selector.length <= MAX_SELECTOR && SELECTOR.test(selector);
}

/**
 * The weight of the selector stays what it was. The root is a div that the author does not know of.
 * @param {string} selector
 */
function withinRoot(selector) {
  return selector
    .replace(/(?<![\w.#-])div(?![\w-])/gi, 'div:where(:not(.body))')
    .replace(/(?<![\w.#-])(?:html\s+(?=body\b))?(?:html|body)(?![\w-])/gi, 'div:where(.body)');
}
