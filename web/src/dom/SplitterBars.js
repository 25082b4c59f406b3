/**
 * Dragging the bars of a splitter: the bar follows the pointer, and the panes follow the bar when it
 * is let go. With the keyboard a bar moves by steps.
 */
import { controlOf, SplitterView } from './controls.js';

const KEY_STEP = 20;
/** @type {Record<string, number>} */
const STEPS = { ArrowLeft: -1, ArrowUp: -1, ArrowRight: 1, ArrowDown: 1 };

/** @param {HTMLElement} bar */
const isUpright = (bar) => bar.classList.contains('upright');

export class SplitterBars {
  /** @type {import('./View.js').View} */
  #view;

  /**
   * @param {import('./View.js').View} view
   * @param {AbortSignal} signal ends it
   */
  constructor(view, signal) {
    this.#view = view;
    const options = { signal };
    view.layer.addEventListener('pointerdown', (event) => this.#press(event), options);
    view.layer.addEventListener('keydown', (event) => this.#key(event), options);
  }

  /** @param {Event} event */
  #barOf(event) {
    const splitter = controlOf(event);
    if (!(splitter instanceof SplitterView)) return undefined;
    const element = /** @type {HTMLElement} */ (event.composedPath()[0]);
    const bar = splitter.barOf(element);
    return bar < 0 ? undefined : { splitter, element, bar };
  }

  /** @param {KeyboardEvent} event */
  #key(event) {
    const found = this.#barOf(event);
    const step = STEPS[event.key];
    if (!found || !step) return;
    event.preventDefault();
    this.#view.dragBar(found.splitter.id, found.bar, step * KEY_STEP);
  }

  /** @param {PointerEvent} event */
  #press(event) {
    const found = this.#barOf(event);
    if (!found || event.button !== 0) return;
    const { splitter, element, bar } = found;
    const { layer } = this.#view;
    const scale = layer.getBoundingClientRect().width / layer.offsetWidth || 1;
    const resting = element.style.transform;
    const upright = isUpright(element);
    const moved = (/** @type {PointerEvent} */ at) =>
      (upright ? at.clientX - event.clientX : at.clientY - event.clientY) / scale;
    const drag = new AbortController();
    const options = { signal: drag.signal };
    const end = (/** @type {number} */ pixels) => {
      drag.abort();
      element.classList.remove('dragged');
      element.style.transform = resting;
      if (pixels) this.#view.dragBar(splitter.id, bar, pixels);
    };
    element.setPointerCapture(event.pointerId);
    element.classList.add('dragged');
    element.addEventListener(
      'pointermove',
      (at) => {
        const by = moved(at);
        element.style.transform = `${resting} translate(${upright ? by : 0}px, ${upright ? 0 : by}px)`;
      },
      options,
    );
    element.addEventListener('pointerup', (at) => end(moved(at)), options);
    element.addEventListener('pointercancel', () => end(0), options);
    element.addEventListener('lostpointercapture', () => end(0), options);
  }
}
