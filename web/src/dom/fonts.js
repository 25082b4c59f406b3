/**
 * Fonts as items name them, as CSS.
 */

/**
 * points: size; style: 1 bold | 2 italic | 4 underlined.
 * @typedef {{points: number, style: number, name: string}} Font
 */

/** @type {Map<string, string>} */
const shorthands = new Map();

/**
 * Families as an author lists them, and one of the same kind that every device has: browsers would
 * take a serif one otherwise.
 * @param {string} families
 */
export function withFallback(families) {
  if (/courier|consolas|mono/i.test(families)) return `${families}, monospace`;
  if (/times|georgia|garamond|cambria|palatino/i.test(families)) return `${families}, serif`;
  return `${families}, sans-serif`;
}

/**
 * The CSS shorthand of a font; underlining is no part of it.
 * @param {Font} font
 */
export function cssFont({ points, style, name }) {
  const key = `${points} ${style} ${name}`;
  let css = shorthands.get(key);
  if (css === undefined) {
    const safe = name.replace(/["\\\n]/g, '');
    css = `${style & 2 ? 'italic ' : ''}${style & 1 ? 'bold ' : ''}${points}pt/1.2 ${withFallback(`"${safe}"`)}`;
    shorthands.set(key, css);
  }
  return css;
}

/**
 * @param {HTMLElement} element
 * @param {Font} font
 */
export function applyFont(element, font) {
  element.style.font = cssFont(font);
  element.style.textDecoration = font.style & 4 ? 'underline' : '';
}
