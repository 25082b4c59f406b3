/**
 * The windows of an item, one over the other within the element: forms, each where it says itself;
 * those that have a caption in a frame that the candidate can move; and the calculator.
 */
import { Calculator } from './Calculator.js';
import { FloatingWindow } from './FloatingWindow.js';

/**
 * @typedef {object} WindowEvents
 * @property {(handle: number) => void} close
 * @property {(handle: number) => void} raise
 */

/**
 * What is shown of a window.
 * @typedef {{bringToFront: (order: number) => void, setVisible: (visible: boolean) => void,
 *   remove: () => void}} Frame
 */

export class Windows {
  /** @type {Map<number, Frame>} by handle */
  #frames = new Map();
  #layer;
  #events;

  /**
   * @param {HTMLElement} layer
   * @param {WindowEvents} events
   */
  constructor(layer, events) {
    this.#layer = layer;
    this.#events = events;
  }

  /**
   * @param {Int32Array} words handle, form's id (0: a program's window) and whether it is visible,
   *   for each window from back to front
   * @param {(id: number) => import('./controls.js').FormView | undefined} formOf
   */
  arrange(words, formOf) {
    const gone = new Map(this.#frames);
    for (let i = 0; i < words.length; i += 3) {
      const [handle, id, visible] = words.subarray(i, i + 3);
      gone.delete(handle);
      const form = id ? formOf(id) : undefined;
      if (id && !form) continue;
      if (form && !form.caption) {
        form.setOrder(i);
        continue;
      }
      const frame = this.#frames.get(handle) ?? this.#open(handle, form, visible !== 0);
      frame?.setVisible(visible !== 0);
      frame?.bringToFront(i);
    }
    for (const [handle, frame] of gone) {
      this.#frames.delete(handle);
      frame.remove();
    }
  }

  /**
   * @param {number} handle
   * @param {import('./controls.js').FormView | undefined} form none: the calculator's
   * @param {boolean} visible
   * @returns {Frame | undefined}
   */
  #open(handle, form, visible) {
    if (!visible) return undefined;
    const onClosed = () => this.#events.close(handle);
    const onFocused = () => this.#events.raise(handle);
    const frame = form
      ? this.#frameForm(form, onClosed, onFocused)
      : new Calculator(this.#layer, { onClosed, onFocused });
    this.#frames.set(handle, frame);
    return frame;
  }

  /**
   * @param {import('./controls.js').FormView} form
   * @param {() => void} onClosed
   * @param {() => void} onFocused
   */
  #frameForm(form, onClosed, onFocused) {
    const { left, top, width, height } = form;
    const frame = new FloatingWindow(this.#layer, {
      title: form.caption,
      content: form.element,
      left,
      top,
      width,
      height,
      onClosed,
      onFocused,
    });
    form.standIn(frame);
    return frame;
  }

  dispose() {
    for (const frame of this.#frames.values()) frame.remove();
    this.#frames.clear();
  }
}
