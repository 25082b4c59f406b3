/**
 * Brings the tags of a page to a plain form before a browser's parser sees them: known elements only,
 * known attributes only, every value in double quotes, no comments, no scripts, and the texts of
 * style elements set apart.
 *
 * It does not make a page safe; the library behind HtmlFilter does that. It is there for two things
 * which come too late once the parser has run:
 * - A browser reports an inline style and an event attribute to the page's content security policy
 *   while it parses, even into a document that is never shown.
 * - A few kilobytes of formatting elements that are never closed keep a parser busy for minutes, as it
 *   opens all of them again in each paragraph.
 */

import { withFallback } from './fonts.js';

/** Elements that a page may have. */
export const ELEMENTS = new Set(
  (
    'body div span p br hr wbr center nobr font b i u s strike strong em big small sub sup ' +
    'tt code kbd samp var cite dfn abbr acronym q blockquote pre address ins del mark ' +
    'h1 h2 h3 h4 h5 h6 ul ol li dl dt dd dir menu ' +
    'table caption colgroup col thead tbody tfoot tr td th img button'
  ).split(' '),
);

/**
 * Attributes that wait under another name until they can be applied without the parser's help: the
 * pictures because only the page's owner knows where they are, the style because a content security
 * policy forbids it as an attribute.
 * @type {Record<string, string>}
 */
export const HELD = { style: 'data-style', src: 'data-src', background: 'data-background' };

/** Attributes that a page may have. */
export const ATTRIBUTES = new Set([
  ...(
    'id class align valign bgcolor color face size text border cellspacing cellpadding width height ' +
    'nowrap colspan rowspan start type dir lang title alt hspace vspace'
  ).split(' '),
  ...Object.values(HELD),
]);

/** Elements that go with all they contain. */
const DROPPED = new Set(
  (
    'script style textarea title xmp iframe noembed noframes noscript plaintext svg math template ' +
    'select audio video'
  ).split(' '),
);

/** Elements that a parser opens again in the next block when they were not closed. */
const FORMATTING = new Set('b big code em font i nobr s small strike strong tt u'.split(' '));

/** Elements within which the end tag of a formatting element that stands outside does nothing. */
const SCOPES = new Set('table caption td th'.split(' '));

const MAX_TEXT = 2_000_000; // characters
const MAX_TAGS = 8000; // start and end tags, those of about 4000 elements
const MAX_UNCLOSED = 40; // formatting elements

// A comment; the beginning of a tag; anything else that a parser takes for a comment.
const MARKUP = /<(?:!--(?:-?>|[^]*?(?:--!?>|$))|(\/?)([a-z][^\s/>]*)|[!?/][^>]*(?:>|$))/gi;
const ATTRIBUTE = /[\s/]*([^\s/>][^\s/>=]*)(?:\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]*)))?/y;
const TAG_END = /[\s/]*>?/y;

/**
 * @param {string} html a page or a piece of one
 * @returns {{markup: string, styleText: string}} the page's markup, and the texts of its style
 *   elements one after the other
 */
export function rewriteTags(html) {
  const text = html.slice(0, MAX_TEXT);
  const limits = new TagLimits();
  let markup = '';
  let styleText = '';
  let position = 0;
  for (;;) {
    MARKUP.lastIndex = position;
    const found = MARKUP.exec(text);
    markup += text.slice(position, found?.index).replaceAll('<', '&lt;');
    if (!found) break;
    position = MARKUP.lastIndex;
    if (found[2] === undefined) continue;

    const name = found[2].toLowerCase();
    const isEnd = found[1] !== '';
    const tag = readTag(text, position);
    position = tag.end;
    if (DROPPED.has(name) && !isEnd) {
      const content = skipContent(text, name, position);
      if (name === 'style') styleText += text.slice(position, content.end) + '\n';
      position = content.next;
    } else if (ELEMENTS.has(name) && limits.admit(name, isEnd)) {
      markup += isEnd ? `</${name}>` : `<${name}${tag.attributes}>`;
    }
  }
  return { markup, styleText };
}

/**
 * Reads the rest of a tag, from behind its name.
 * @param {string} text
 * @param {number} from
 * @returns {{attributes: string, end: number}}
 */
function readTag(text, from) {
  let attributes = '';
  let end = from;
  for (;;) {
    ATTRIBUTE.lastIndex = end;
    const found = ATTRIBUTE.exec(text);
    if (!found) break;
    end = ATTRIBUTE.lastIndex;
    const given = found[1].toLowerCase();
    const name = Object.hasOwn(HELD, given) ? HELD[given] : given;
    if (!ATTRIBUTES.has(name)) continue;
    const written = found[2] ?? found[3] ?? found[4] ?? '';
    const value = name === 'face' ? withFallback(written) : written;
    attributes += ` ${name}="${value.replaceAll('"', '&quot;')}"`;
  }
  TAG_END.lastIndex = end;
  TAG_END.exec(text);
  return { attributes, end: TAG_END.lastIndex };
}

/**
 * Finds the end tag of an element whose content is no markup of the page.
 * @param {string} text
 * @param {string} name
 * @param {number} from
 * @returns {{end: number, next: number}} where the content ends and where the page goes on
 */
function skipContent(text, name, from) {
  const endTag = new RegExp(`</${name}(?:[\\s/][^>]*)?(?:>|$)`, 'gi');
  endTag.lastIndex = from;
  const found = endTag.exec(text);
  return { end: found?.index ?? text.length, next: found ? endTag.lastIndex : text.length };
}

/** Decides which tags are too many. The text between them stays. */
class TagLimits {
  #tags = 0;
  // At least as many as a parser may have to open again.
  #unclosed = 0;
  // Those of #unclosed, by name, that an end tag met now would surely close.
  /** @type {Map<string, number>} */
  #closable = new Map();

  /**
   * @param {string} name
   * @param {boolean} isEnd
   * @returns {boolean} whether the tag may stay
   */
  admit(name, isEnd) {
    if (++this.#tags > MAX_TAGS) return false;
    if (SCOPES.has(name) && !isEnd) this.#closable.clear();
    if (!FORMATTING.has(name)) return true;
    const closable = this.#closable.get(name) ?? 0;
    const change = isEnd ? -Math.min(closable, 1) : 1;
    if (this.#unclosed + change > MAX_UNCLOSED) return false;
    this.#unclosed += change;
    this.#closable.set(name, closable + change);
    return true;
  }
}
