/**
 * Reads a batch of changes, laid out as ChangeBuffer.h says, and applies each to its control.
 */
import { cssColor } from './controls.js';

const decoder = new TextDecoder();

// Kinds of changes, as in ChangeBuffer.h.
const CREATE = 1;
const REMOVE = 2;
const PLACE = 3;
const VISIBLE = 4;
const ORDER = 5;
const LOOK = 6;
const FONT = 7;
const BUTTON = 8;
const LABEL = 9;
const PANE = 10;
const RICH_TEXT = 11;
const SCROLL = 12;
const BARS = 13;
const SURFACE = 14;
const FORM = 15;

/**
 * @typedef {object} Controls
 * @property {(id: number) => any} get the view of that control
 * @property {(id: number, kind: number, container: number, framed: boolean, takesFocus: boolean,
 *   index: number, name: string) => void} create
 * @property {(id: number) => void} remove
 */

/**
 * @param {Int32Array} words
 * @param {Uint8Array} texts
 * @param {Controls} controls
 */
export function applyChanges(words, texts, controls) {
  // Texts of which each character is one byte are decoded together.
  const all = texts.length ? decoder.decode(texts) : '';
  const isPlain = all.length === texts.length;
  /** @type {Float32Array | undefined} the words, as what some of them are */
  let floats;
  let at = 0;

  const next = () => words[at++];
  const flag = () => words[at++] !== 0;
  const float = () => {
    floats ??= new Float32Array(words.buffer, words.byteOffset, words.length);
    return floats[at++];
  };
  const text = () => {
    const start = next();
    const end = start + next();
    return isPlain ? all.slice(start, end) : decoder.decode(texts.subarray(start, end));
  };
  const bar = () => ({ left: next(), top: next(), width: next(), height: next(), upright: flag() });
  const shape = () => ({
    kind: next(),
    x1: float(),
    y1: float(),
    x2: float(),
    y2: float(),
    penWidth: next(),
    color: cssColor(next()),
    picture: next(),
  });
  /**
   * @template T
   * @param {() => T} read
   */
  const list = (read) => {
    const values = [];
    for (let count = next(); count > 0; count--) values.push(read());
    return values;
  };

  /**
   * @param {any} control of the kind that has that change
   * @param {number} change
   */
  const applyTo = (control, change) => {
    switch (change) {
      case PLACE:
        return control.place(next(), next(), next(), next());
      case VISIBLE:
        return control.setVisible(flag());
      case ORDER:
        return control.setOrder(next());
      case LOOK:
        control.setEnabled(flag());
        control.setColors(next(), next());
        return control.setPointer(next(), next());
      case FONT:
        return control.setFont({ points: float(), style: next(), name: text() });
      case BUTTON:
        return control.show(next(), flag(), next(), text());
      case LABEL:
        return control.show(next(), text());
      case PANE:
        return control.show(next(), flag(), flag());
      case RICH_TEXT:
        return control.show(flag(), text());
      case SCROLL:
        return control.show(next(), next(), next(), next());
      case BARS:
        return control.show(list(bar));
      case SURFACE:
        return control.surface.draw(flag(), next(), list(shape));
      case FORM:
        return control.show(text());
      default:
        throw new Error(`Unknown change ${change}`);
    }
  };

  while (at < words.length) {
    const change = next();
    const id = next();
    if (change === CREATE) {
      controls.create(id, next(), next(), flag(), flag(), next(), text());
    } else if (change === REMOVE) {
      controls.remove(id);
    } else {
      applyTo(controls.get(id), change);
    }
  }
}
