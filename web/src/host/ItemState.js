/**
 * What a state snapshot is and says.
 */
import { hasText, parse } from './ItemXml.js';

const SHOWN = 60; // characters
// What a state keeps besides the responses: a name, and what it may say.
const VIEW_VALUE =
  /^(?:ItemStemScroll (?:True|False)|(?:(?:WorkArea|SourceArea)Scroll|ItemStemHeight|SourceAreaWidth) -?[\d.]+(?:E[+-]\d+)?)$/;
const RESPONSE = /<Response>([^<]*)<\/Response>/g;
const SEEN = [
  '<ItemStemScroll>True</ItemStemScroll>',
  '<WorkAreaScroll>3</WorkAreaScroll>',
  '<SourceAreaScroll>3</SourceAreaScroll>',
];
/** @type {Record<string, string>} */
const ENTITIES = { '&lt;': '<', '&gt;': '>', '&quot;': '"', '&apos;': "'", '&amp;': '&' };

/**
 * A state as the component takes it, with a place for responses. Blank text is one without any.
 * @param {string} given what a host's buffer holds behind it does not count
 * @throws {Error} for what is no state
 */
export function wholeState(given) {
  const text = given.split('\0', 1)[0].trim() || '<State/>';
  const root = parse(text);
  if (root?.nodeName !== 'State' || hasText(root) || ![...root.children].every(isPart)) {
    const shown = text.length > SHOWN ? `${text.slice(0, SHOWN)}…` : text;
    throw new Error(`Expected a whole <State>…</State>, got ${shown}`);
  }
  if (root.querySelector('Responses')) return text;
  root.prepend(root.ownerDocument.createElementNS(null, 'Responses'));
  return new XMLSerializer().serializeToString(root);
}

/** @param {Element} element */
function isPart(element) {
  const { nodeName, children, textContent } = element;
  return nodeName === 'Responses'
    ? !hasText(element) && [...children].every(isResponse)
    : !children.length && VIEW_VALUE.test(`${nodeName} ${textContent}`);
}

/** @param {Element} element */
function isResponse({ nodeName, children, textContent }) {
  return nodeName === 'Response' && !children.length && Boolean(textContent?.trim());
}

/**
 * The responses in a state, such as A3.
 * @param {string} state
 */
export function responsesIn(state) {
  return [...state.matchAll(RESPONSE)].map(([, text]) =>
    text.replace(/&\w+;/g, (entity) => ENTITIES[entity] ?? entity),
  );
}

/**
 * Whether the candidate has seen the whole item.
 * @param {string} state
 */
export const sawAll = (state) => SEEN.every((mark) => state.includes(mark));
