/**
 * Takes over styles of pages: harmless properties with harmless values, and pictures only from where
 * the page's owner keeps them. All that a browser made of an author's text is read back property by
 * property, so that neither escapes nor comments in the text can hide anything.
 */

import { keepLatest } from '../keepLatest.js';
import { withFallback } from './fonts.js';
import { MAX_PICTURES } from './HtmlTags.js';
import { readDeclarations, readRules } from './StyleText.js';

const MAX_VALUE = 10_000; // characters

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
  #asked = 0;
  #scratch = document.createElement('span');
  /** What was made of style attributes: most are there many times. @type {Map<string, string>} */
  #applied = new Map();
  // Only a browser that is given complete urls gives back the same ones.
  #toUrl = (/** @type {string} */ name) => this.picture(name);

  /** @param {(name: string) => string | null} pictureUrl where a picture is, null for an unknown one */
  constructor(pictureUrl) {
    this.#pictureUrl = pictureUrl;
  }

  /**
   * @param {string} name as the page gives it
   * @returns {string | null} a complete url
   */
  picture(name) {
    if (!name.trim() || ++this.#asked > MAX_PICTURES) return null;
    const url = this.#pictureUrl(name.trim());
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
    let css = this.#applied.get(declarations);
    if (css === undefined) {
      const { style } = document.createElement('span');
      this.#copy(readDeclarations(declarations, this.#toUrl), style);
      css = style.cssText;
      this.#applied.set(declarations, css);
    }
    if (css) element.style.cssText += css;
  }

  /**
   * @param {string} text of style elements
   * @returns {CSSStyleSheet | null} null where no rule is left. html and body stand for the page's own
   *   root, a div of class "body".
   */
  sheet(text) {
    const rules = readRules(text, this.#toUrl);
    const resolved = JSON.stringify(rules);
    const known = sheets.get(resolved);
    if (known !== undefined) return known;
    const made = this.#makeSheet(rules);
    if (resolved.length <= MOST_CHARACTERS) keepLatest(sheets, resolved, made, MOST_SHEETS);
    return made;
  }

  /** @param {import('./StyleText.js').Rule[]} rules */
  #makeSheet(rules) {
    const sheet = new CSSStyleSheet();
    for (const { selector, declarations } of rules) {
      const { length } = sheet.cssRules;
      try {
        sheet.insertRule(`${withinRoot(selector)} {}`, length);
      } catch {
        continue; // no selector
      }
      this.#copy(declarations, /** @type {CSSStyleRule} */ (sheet.cssRules[length]).style);
    }
    return sheet.cssRules.length > 0 ? sheet : null;
  }

  /**
   * @param {string} declarations with complete urls
   * @param {CSSStyleDeclaration} to
   */
  #copy(declarations, to) {
    const from = this.#scratch.style;
    from.cssText = declarations;
    for (const name of from) {
      if (!PROPERTIES.has(name) && !PROPERTY_FAMILY.test(name)) continue;
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
    if (value.length > MAX_VALUE || (name === 'position' && !POSITION.test(value))) return false;
    // A value may bring in something else only by a function, or by a character escaped into one.
    const rest = value
      .replace(URL_IN_VALUE, (whole, url) => (this.#pictures.has(url) ? '' : whole))
      .replace(HARMLESS_FUNCTION, '');
    return !/[(\\]/.test(rest);
  }
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
