/**
 * Reads CSS of authors before a browser's parser sees it, once and from front to back. What is handed
 * on is short and not deep, and names no file but those that the page's owner knows: some browsers
 * take a minute for a few kilobytes of brackets in brackets, or end the page.
 */

const MAX_TEXT = 100_000; // characters
const MAX_DEPTH = 50; // brackets in brackets of any kind
const MAX_RULES = 500;
const MAX_SELECTOR = 200; // characters

// Elements, classes, ids, and one inside the other: what the authors' tools write. With more than
// these, a selector can reach out of the page or take a browser very long to match.
const SELECTOR = /^[\w\s.#*,\u0080-\uffff-]+$/;

const AT_RULES = /^(?:\s*@[^;]*;)+/; // those without a block

// What is one thing, whatever stands in it: a comment, or the signs that old pages put around a style;
// a url; a text, which ends with its line; a name with escapes. Each takes all that it has looked at.
const TOKEN = new RegExp(
  [
    /(\/\*[^]*?(?:\*\/|$)|<!--|-->)/,
    /url\(\s*(?:"([^"]*)"|'([^']*)')\s*\)|url\(([^)]*)\)?/,
    /"(?:[^"\\\n\r\f]|\\(?:\r\n|[^]))*"?|'(?:[^'\\\n\r\f]|\\(?:\r\n|[^]))*'?/,
    /((?:\\(?:[\da-f]{1,6}(?:\r\n|\s)?|[^]?)[\w\u0080-\uffff-]*)+)/,
    /([([{])|([)\]}])/,
  ]
    .map(({ source }) => source)
    .join('|'),
  'gi',
);

/** @type {Record<string, string>} */
const CLOSING = { '(': ')', '[': ']', '{': '}' };

/**
 * @typedef {{selector: string, declarations: string}} Rule
 * @typedef {(name: string) => string | null} PictureUrl null for a picture that may not be shown
 */

/**
 * The rules of a style sheet, those with plain selectors that stand in no other. What comes after
 * very much text, or after brackets that are too deep, is left out.
 * @param {string} text
 * @param {PictureUrl} pictureUrl
 */
export function readRules(text, pictureUrl) {
  return readBlocks(text, pictureUrl)
    .filter(({ selector }) => selector.length <= MAX_SELECTOR && SELECTOR.test(selector))
    .slice(0, MAX_RULES);
}

/**
 * The declarations of a style attribute; none of them where brackets are too deep.
 * @param {string} text
 * @param {PictureUrl} pictureUrl
 */
export function readDeclarations(text, pictureUrl) {
  return readBlocks(`{${text}`, pictureUrl)[0]?.declarations ?? '';
}

/**
 * @param {string} whole
 * @param {PictureUrl} pictureUrl
 */
function readBlocks(whole, pictureUrl) {
  const text = whole.slice(0, MAX_TEXT);
  /** @type {Rule[]} */
  const rules = [];
  let awaited = ''; // what closes the open brackets, the innermost last
  let selector = '';
  let read = '';
  let position = 0;
  for (const token of text.matchAll(TOKEN)) {
    const [taken, ignored, double, single, bare, escaped, opening, closing] = token;
    read += text.slice(position, token.index);
    position = token.index + taken.length;
    const name = double ?? single ?? bare;
    if (opening && awaited.length === MAX_DEPTH) return rules;
    if (opening === '{' && !awaited) {
      selector = read.replace(AT_RULES, '').trim();
      read = '';
    } else if (closing === '}' && awaited === '}') {
      rules.push({ selector, declarations: read });
      read = '';
    } else if (ignored) {
      read += ' ';
    } else if (name !== undefined) {
      const url = pictureUrl(name);
      read += url ? `url("${url}")` : 'none';
    } else if (escaped && text[position] === '(') {
      read += `${taken}\uFFFD`; // otherwise it might be a url
    } else {
      read += taken;
    }
    if (opening) awaited += CLOSING[opening];
    else if (closing && awaited.endsWith(closing)) awaited = awaited.slice(0, -1);
  }
  if (awaited.startsWith('}')) rules.push({ selector, declarations: read + text.slice(position) });
  return rules;
}
