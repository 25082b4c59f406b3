/**
 * The candidate's keyboard, and what happens in the pages of panes.
 */
import { PageEventFlag } from '../runtime/Runtime.js';
import { controlOf, HtmlPaneView } from './controls.js';

/** Enter, Escape, blank, the arrows, Delete. */
const KEYS = new Set([13, 27, 32, 37, 38, 39, 40, 46]);

/**
 * The id of the element of a page that an event happened to; the nearest one that has an id.
 * @param {Event} event
 * @param {HTMLElement} pane
 */
function elementIdOf(event, pane) {
  for (const node of event.composedPath()) {
    if (node === pane) break;
    if (node instanceof HTMLElement && node.id) return node.id;
  }
  return '';
}

/** @param {Event} event */
const isOnButton = (event) =>
  event.composedPath().some((node) => node instanceof HTMLButtonElement);

export class KeyTracker {
  /** @type {import('./View.js').View} */
  #view;

  /**
   * @param {import('./View.js').View} view
   * @param {AbortSignal} signal ends it
   */
  constructor(view, signal) {
    this.#view = view;
    const { layer } = view;
    const options = { signal };
    layer.addEventListener('keydown', (event) => this.#keyDown(event), options);
    layer.addEventListener('focusin', (event) => this.#focusIn(event), options);
    for (const type of ['click', 'selectstart']) {
      layer.addEventListener(type, (event) => this.#pageEvent(event, type), options);
    }
  }

  /** @param {KeyboardEvent} event */
  #keyDown(event) {
    const control = controlOf(event);
    if (!control || event.ctrlKey || event.metaKey) return;
    if (control instanceof HtmlPaneView) {
      // Buttons are pressed, and Tab walks on, as everywhere.
      if (event.key !== 'Tab' && !isOnButton(event)) this.#pageEvent(event, 'keydown');
      return;
    }
    if (!control.takesFocus || !KEYS.has(event.keyCode)) return;
    event.preventDefault();
    this.#view.key(control.id, event.keyCode, event.altKey);
  }

  /** @param {FocusEvent} event */
  #focusIn(event) {
    const control = controlOf(event);
    if (!control?.takesFocus) return;
    control.describe();
    this.#view.focus(control.id);
  }

  /**
   * @param {Event} event
   * @param {string} type
   */
  #pageEvent(event, type) {
    const control = controlOf(event);
    if (!(control instanceof HtmlPaneView)) return;
    const { altKey = false, keyCode = 0 } = /** @type {KeyboardEvent} */ (event);
    const id = elementIdOf(event, control.element);
    const flags = this.#view.pageEvent(control.id, type, id, altKey, keyCode);
    if (flags & PageEventFlag.suppressed) event.preventDefault();
    if (flags & PageEventFlag.clearSelection) getSelection()?.removeAllRanges();
    if (flags & PageEventFlag.stopped) event.stopPropagation();
  }
}
