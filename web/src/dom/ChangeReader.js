/**
 * Reads a batch of changes, laid out as ChangeBuffer.h says, and applies each to its control.
 */
import { cssColor } from './controls.js';

const decoder = new TextDecoder();

/** Kinds of changes, as in ChangeBuffer.h. */
const Change = {
  create: 1,
  remove: 2,
  place: 3,
  visible: 4,
  order: 5,
  look: 6,
  font: 7,
  button: 8,
  label: 9,
  pane: 10,
  richText: 11,
  scroll: 12,
  bars: 13,
  surface: 14,
  form: 15,
};

/**
 * @typedef {object} Controls
 * @property {(id: number) => any} get the view of that control
 * @property {(id: number, kind: number, container: number, framed: boolean, takesFocus: boolean,
 *   index: number, name: string) => void} create
 * @property {(id: number) => void} remove
 */

export class ChangeReader {
  #words;
  #floats;
  #texts;
  #at = 0;

  /**
   * @param {Int32Array} words
   * @param {Uint8Array} texts
   */
  constructor(words, texts) {
    this.#words = words;
    this.#floats = new Float32Array(words.buffer, words.byteOffset, words.length);
    this.#texts = texts;
  }

  /** @param {Controls} controls */
  apply(controls) {
    while (this.#at < this.#words.length) {
      const change = this.#next();
      const id = this.#next();
      if (change === Change.create) this.#create(controls, id);
      else if (change === Change.remove) controls.remove(id);
      else this.#applyTo(controls.get(id), change);
    }
  }

  /**
   * @param {Controls} controls
   * @param {number} id
   */
  #create(controls, id) {
    const kind = this.#next();
    const container = this.#next();
    const framed = this.#flag();
    const takesFocus = this.#flag();
    const index = this.#next();
    controls.create(id, kind, container, framed, takesFocus, index, this.#text());
  }

  /**
   * @param {any} control of the kind that has that change
   * @param {number} change
   */
  #applyTo(control, change) {
    switch (change) {
      case Change.place:
        control.place(this.#next(), this.#next(), this.#next(), this.#next());
        break;
      case Change.visible:
        control.setVisible(this.#flag());
        break;
      case Change.order:
        control.setOrder(this.#next());
        break;
      case Change.look:
        control.setLook(this.#flag(), this.#color(), this.#color());
        control.setPointer(this.#next(), this.#next());
        break;
      case Change.font:
        control.setFont({ points: this.#float(), style: this.#next(), name: this.#text() });
        break;
      case Change.button:
        control.show(this.#next(), this.#flag(), this.#next(), this.#text());
        break;
      case Change.label:
        control.show(this.#next(), this.#text());
        break;
      case Change.pane:
        control.show(this.#next(), this.#flag(), this.#flag());
        break;
      case Change.richText:
        control.show(this.#flag(), this.#text());
        break;
      case Change.scroll:
        control.show(this.#next(), this.#next(), this.#next(), this.#next());
        break;
      case Change.bars:
        control.show(this.#list(() => this.#bar()));
        break;
      case Change.surface:
        control.surface.draw(
          this.#flag(),
          this.#next(),
          this.#list(() => this.#shape()),
        );
        break;
      case Change.form:
        control.window = this.#next();
        control.closable = this.#flag();
        control.caption = this.#text();
        break;
      default:
        throw new Error(`Unknown change ${change}`);
    }
  }

  #bar() {
    return {
      left: this.#next(),
      top: this.#next(),
      width: this.#next(),
      height: this.#next(),
      upright: this.#flag(),
    };
  }

  #shape() {
    return {
      kind: this.#next(),
      x1: this.#float(),
      y1: this.#float(),
      x2: this.#float(),
      y2: this.#float(),
      penWidth: this.#next(),
      color: this.#color(),
      picture: this.#next(),
    };
  }

  /**
   * @template T
   * @param {() => T} read
   * @returns {T[]}
   */
  #list(read) {
    return Array.from({ length: this.#next() }, read);
  }

  #next() {
    return this.#words[this.#at++];
  }

  #flag() {
    return this.#next() !== 0;
  }

  #float() {
    return this.#floats[this.#at++];
  }

  #color() {
    return cssColor(this.#next());
  }

  #text() {
    const start = this.#next();
    const length = this.#next();
    return length ? decoder.decode(this.#texts.subarray(start, start + length)) : '';
  }
}
