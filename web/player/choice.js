/**
 * What the page shows, as its address carries it: "#heart?language=fr&options=read-only+calculator".
 *
 * @typedef {object} Choice
 * @property {string} item the item's name; '' for the first one
 * @property {string} language '' for the item's own
 * @property {string[]} options words of the element's attribute
 * @property {string} size such as 800x600; '' to fit the page
 */

const OPTIONS = ['read-only', 'show-answers', 'calculator'];
const SIZES = ['', '800x600', '1024x768'];

/**
 * What is unknown in an address is passed over.
 * @param {string} hash of an address, with or without its "#"
 * @returns {Choice}
 */
export function readChoice(hash) {
  const [name, query = ''] = hash.replace(/^#/, '').split('?', 2);
  const values = new URLSearchParams(query);
  const words = (values.get('options') ?? '').split(' ');
  const size = values.get('size') ?? '';
  return {
    item: decode(name),
    language: values.get('language') ?? '',
    options: OPTIONS.filter((option) => words.includes(option)),
    size: SIZES.includes(size) ? size : '',
  };
}

/** @param {string} text */
function decode(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text; // somebody typed a "%"
  }
}

/**
 * The shortest address that says it.
 * @param {Choice} choice
 */
export function writeChoice({ item, language, options, size }) {
  const values = { language, options: options.join(' '), size };
  const query = new URLSearchParams(Object.entries(values).filter(([, value]) => value));
  return `#${encodeURIComponent(item)}${query.size ? `?${query}` : ''}`;
}
