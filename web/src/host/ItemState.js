/**
 * What a state snapshot says.
 */

const RESPONSE = /<Response>([^<]*)<\/Response>/g;
const SEEN = [
  '<ItemStemScroll>True</ItemStemScroll>',
  '<WorkAreaScroll>3</WorkAreaScroll>',
  '<SourceAreaScroll>3</SourceAreaScroll>',
];
/** @type {Record<string, string>} */
const ENTITIES = { '&lt;': '<', '&gt;': '>', '&quot;': '"', '&apos;': "'", '&amp;': '&' };

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
