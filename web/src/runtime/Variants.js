/**
 * Values of late-bound calls as bytes, in which they cross between the component and the page. The
 * layout is that of VariantCodec.h.
 *
 * JavaScript's side: undefined is Empty, null is Nothing; a number is an Int32 where it is whole and
 * fits, else a Double; a Uint8Array is an Array; any other object or function goes by a number.
 */

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** What a `ShowMessage` gives that answers later. */
export class Question {
  /**
   * @param {Promise<number>} answered
   * @param {() => void} drop nobody waits for the answer any more
   */
  constructor(answered, drop) {
    this.answered = answered;
    this.drop = drop;
  }
}

/**
 * Knows the objects of both sides by their numbers.
 * @typedef {object} ObjectNumbers
 * @property {(object: object) => number} nativeNumberOf 0 for an object of the page's
 * @property {(object: object) => number} keepObject
 * @property {(question: Question) => number} keepQuestion
 * @property {(number: number) => object | undefined} objectOf
 * @property {(number: number) => object} wrapNative
 */

export class VariantWriter {
  #buffer = new Uint8Array(256);
  #view = new DataView(this.#buffer.buffer);
  #length = 0;
  #objects;

  /** @param {ObjectNumbers} objects */
  constructor(objects) {
    this.#objects = objects;
  }

  bytes() {
    return this.#buffer.subarray(0, this.#length);
  }

  /** @param {number} number */
  writeNumber(number) {
    const at = this.#extend(4);
    this.#view.setInt32(at, number, true);
  }

  /** @param {string} text */
  writeText(text) {
    this.#writeBytes(encoder.encode(text));
  }

  /** @param {unknown} value */
  write(value) {
    if (value === undefined) this.#tag(0);
    else if (value === null) this.#tag(7);
    else if (typeof value === 'boolean') this.#tag(1).#tag(value ? 1 : 0);
    else if (typeof value === 'number') this.#writeJsNumber(value);
    else if (typeof value === 'string') this.#tag(6).writeText(value);
    else if (value instanceof Uint8Array) this.#tag(10).#writeBytes(value);
    else this.#writeObject(/** @type {object} */ (value));
  }

  /** @param {number} tag */
  #tag(tag) {
    const at = this.#extend(1);
    this.#buffer[at] = tag;
    return this;
  }

  /** @param {Uint8Array} bytes */
  #writeBytes(bytes) {
    this.writeNumber(bytes.length);
    const at = this.#extend(bytes.length);
    this.#buffer.set(bytes, at);
  }

  /** @param {number} value */
  #writeJsNumber(value) {
    if (Number.isInteger(value) && Math.abs(value) < 2 ** 31) {
      this.#tag(3).writeNumber(value);
      return;
    }
    const at = this.#tag(5).#extend(8);
    this.#view.setFloat64(at, value, true);
  }

  /**
   * Makes room for so many bytes, in a new buffer where need be, and gives where they begin.
   * @param {number} count
   */
  #extend(count) {
    const start = this.#length;
    this.#length += count;
    if (this.#length > this.#buffer.length) {
      const larger = new Uint8Array(Math.max(this.#length, 2 * this.#buffer.length));
      larger.set(this.#buffer);
      this.#buffer = larger;
      this.#view = new DataView(larger.buffer);
    }
    return start;
  }

  /** @param {object} value */
  #writeObject(value) {
    if (value instanceof Question) {
      this.#tag(11).writeNumber(this.#objects.keepQuestion(value));
      return;
    }
    const native = this.#objects.nativeNumberOf(value);
    if (native) this.#tag(8).writeNumber(native);
    else this.#tag(9).writeNumber(this.#objects.keepObject(value));
  }
}

export class VariantReader {
  #bytes;
  #view;
  #at = 0;
  #objects;

  /**
   * @param {ObjectNumbers} objects
   * @param {Uint8Array} bytes read at once: they may lie in memory that moves
   */
  constructor(objects, bytes) {
    this.#objects = objects;
    this.#bytes = bytes;
    this.#view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  }

  atEnd() {
    return this.#at >= this.#bytes.length;
  }

  readNumber() {
    this.#at += 4;
    return this.#view.getInt32(this.#at - 4, true);
  }

  readText() {
    return decoder.decode(this.#take(this.readNumber()));
  }

  /** @returns {unknown} */
  read() {
    switch (this.#bytes[this.#at++]) {
      case 1:
        return this.#bytes[this.#at++] !== 0;
      case 2:
      case 3:
        return this.readNumber();
      case 4:
      case 5:
        this.#at += 8;
        return this.#view.getFloat64(this.#at - 8, true);
      case 6:
        return this.readText();
      case 7:
        return null;
      case 8:
        return this.#objects.wrapNative(this.readNumber());
      case 9:
        return this.#objects.objectOf(this.readNumber());
      case 10:
        return this.#take(this.readNumber()).slice();
      default:
        return undefined;
    }
  }

  /** @param {number} length */
  #take(length) {
    this.#at += length;
    return this.#bytes.subarray(this.#at - length, this.#at);
  }
}
