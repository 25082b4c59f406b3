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

/** Elements that have no end tag, or need none: what comes next closes them. */
const UNNESTED = new Set(
  'body p br hr wbr img h1 h2 h3 h4 h5 h6 li dt dd colgroup col thead tbody tfoot tr td th'.split(
    ' ',
  ),
);

/** Elements within which the end tag of a formatting element that stands outside does nothing. */
const SCOPES = new Set('table caption td th'.split(' '));

export const MAX_PICTURES = 1000;
const MAX_TEXT = 2_000_000; // characters
const MAX_TAGS = 8000; // start and end tags, those of about 4000 elements
const MAX_UNCLOSED = 40; // formatting elements
const MAX_SPAN = 100; // rows or columns of a cell
const MAX_OPENED_AGAIN = 10_000; // formatting elements, by all other tags together
const MAX_DEPTH = 100; // elements of other kinds within each other

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
    let attributes = '';
    position = readAttributes(text, position, (given, value) => {
      attributes += admitted(given, value);
    });
    if (DROPPED.has(name) && !isEnd) {
      const content = skipContent(text, name, position);
      if (name === 'style') styleText += text.slice(position, content.end) + '\n';
      position = content.next;
    } else if (ELEMENTS.has(name) && limits.admit(name, isEnd)) {
      markup += isEnd ? `</${name}>` : `<${name}${attributes}>`;
    }
  }
  return { markup, styleText };
}

/**
 * Reads the rest of a tag, from behind its name.
 * @param {string} text
 * @param {number} from
 * @param {(name: string, value: string) => void} tell of each attribute; its name in small letters
 * @returns {number} where the tag ends
 */
export function readAttributes(text, from, tell) {
  let end = from;
  for (;;) {
    ATTRIBUTE.lastIndex = end;
    const found = ATTRIBUTE.exec(text);
    if (!found) break;
    end = ATTRIBUTE.lastIndex;
    tell(found[1].toLowerCase(), found[2] ?? found[3] ?? found[4] ?? '');
  }
  TAG_END.lastIndex = end;
  TAG_END.exec(text);
  return TAG_END.lastIndex;
}

/**
 * @param {string} given
 * @param {string} written
 * @returns {string} the attribute as it stands in a tag; empty where a page may not have it
 */
function admitted(given, written) {
  const name = Object.hasOwn(HELD, given) ? HELD[given] : given;
  if (!ATTRIBUTES.has(name)) return '';
  let value = written;
  if (name === 'face') value = withFallback(written);
  else if (name.endsWith('span')) value = String(Math.min(Number.parseInt(written, 10), MAX_SPAN));
  return ` ${name}="${value.replaceAll('"', '&quot;')}"`;
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
  #pictures = 0;
  #openedAgain = 0;
  #depth = 0;
  // Those of #depth, by name.
  /** @type {Map<string, number>} */
  #open = new Map();
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
    if (name === 'img' && ++this.#pictures > MAX_PICTURES) return false;
    if (SCOPES.has(name) && !isEnd) this.#closable.clear();
    return FORMATTING.has(name)
      ? this.#admitFormatting(name, isEnd)
      : this.#admitOther(name, isEnd);
  }

  /**
   * @param {string} name
   * @param {boolean} isEnd
   */
  #admitOther(name, isEnd) {
    this.#openedAgain += this.#unclosed;
    if (this.#openedAgain > MAX_OPENED_AGAIN) return false;
    if (UNNESTED.has(name)) return true;
    const open = this.#open.get(name) ?? 0;
    const change = isEnd ? -Math.min(open, 1) : 1;
    this.#open.set(name, open + change);
    this.#depth += change;
    // Where a start tag was too deep, its end tag is.
    return this.#depth + (isEnd ? 1 : 0) <= MAX_DEPTH;
  }

  /**
   * @param {string} name
   * @param {boolean} isEnd
   */
  #admitFormatting(name, isEnd) {
    const closable = this.#closable.get(name) ?? 0;
    const change = isEnd ? -Math.min(closable, 1) : 1;
    if (this.#unclosed + change > MAX_UNCLOSED) return false;
    this.#unclosed += change;
    this.#closable.set(name, closable + change);
    return true;
  }
}
