/**
 * The pictures of one item: loaded before the item is initialised, known to the component by a
 * number and to pages by the path that the host gave for them. Nothing is fetched for a path that was
 * not brought.
 */
import { keepLatest } from '../keepLatest.js';

/**
 * A picture that can be shown. number 0: what was fetched is no picture.
 * @typedef {{number: number, width: number, height: number}} LoadedPicture
 */

const MOST_KEPT = 64;
const MOST_PIXELS = 1_000_000;

/**
 * Pictures of the last items, by url: while they are here the page need not load them again when the
 * candidate comes back.
 * @type {Map<string, HTMLImageElement>}
 */
const kept = new Map();

/**
 * A picture that the page has already is there without any waiting.
 * @param {string} url
 * @returns {HTMLImageElement | Promise<HTMLImageElement>} rejected for what is missing and for what is
 *   no picture
 */
export function loadImage(url) {
  const image = new Image();
  image.src = url;
  if (image.complete && image.naturalWidth) return image;
  return new Promise((resolve, reject) => {
    image.onload = () => resolve(image);
    image.onerror = () => reject(new Error(`Not a picture: ${url}`));
  });
}

/**
 * Pages write the names of the component's own pictures in a case of their own.
 * @param {string} path
 */
const keyOf = (path) => (path.endsWith('kvt.bmp') ? path.toLowerCase() : path);

export class Pictures {
  /** @type {HTMLImageElement[]} */
  #images = [new Image()];
  /** @type {Map<string, number>} */
  #numbers = new Map();

  /**
   * @param {HTMLImageElement} image
   * @param {number} width
   * @param {number} height
   * @returns {LoadedPicture}
   */
  add(image, width = image.naturalWidth, height = image.naturalHeight) {
    return { number: this.#images.push(image) - 1, width, height };
  }

  /**
   * @param {string} path
   * @param {number} number
   */
  name(path, number) {
    this.#numbers.set(keyOf(path), number);
  }

  /** The item is gone, and shows none of its pictures any more. */
  dispose() {
    for (const number of this.#numbers.values()) {
      const image = this.#images[number];
      image.remove();
      const pixels = image.naturalWidth * image.naturalHeight;
      if (pixels > 0 && pixels <= MOST_PIXELS) keepLatest(kept, image.src, image, MOST_KEPT);
    }
  }

  /** @param {number} number */
  image(number) {
    return this.#images[number];
  }

  /**
   * An element that shows the picture and is the caller's: the one that loaded it, where that is not
   * in use, because a second one is not there at once.
   * @param {number} number
   */
  element(number) {
    const loaded = this.#images[number];
    const image = loaded.parentNode ? new Image() : loaded;
    image.removeAttribute('style');
    image.alt = '';
    image.draggable = false;
    if (image !== loaded) image.src = loaded.src;
    return image;
  }

  /** @param {number} number */
  urlOf(number) {
    return number ? this.#images[number].src : '';
  }

  /**
   * The url of the picture at a path; null for a picture that was not brought.
   * @param {string} path
   */
  urlAt(path) {
    const number = this.#numbers.get(keyOf(path));
    return number ? this.#images[number].src : null;
  }
}
