/**
 * A window inside the element: a frame with a caption bar and a close button around content of its
 * owner's. It is moved by its caption with mouse, pen or finger, and keeps its whole caption bar
 * within its container, even when the container shrinks.
 *
 * Lengths are CSS pixels of the container, before any scaling of its ancestors.
 */

import { focusedIn, make } from './elements.js';

/**
 * @typedef {object} FloatingWindowOptions
 * @property {string} title
 * @property {HTMLElement} content shown below the caption bar; takes the focus when it can
 * @property {number} [left]
 * @property {number} [top]
 * @property {number} width of the content
 * @property {number} height of the content
 * @property {() => void} [onClosed] the user closed the window, which is removed by then
 * @property {() => void} [onFocused] the user turned to the window, whose owner then brings it to the front
 */

/**
 * @typedef {object} Drag
 * @property {number} pointerId
 * @property {{x: number, y: number}} from where the pointer went down, in pixels of the page
 * @property {{left: number, top: number}} origin where the window stood
 */

let windowsMade = 0;

// On while the focus moves because a window is shown or goes, which is no news to any owner.
let movingFocus = false;

export class FloatingWindow {
  #container;
  #frame;
  #caption;
  #title;
  #body;
  #content;
  #onClosed;
  #onFocused;
  // Where the window was put; it stands as near to that as its container lets it.
  #place;
  /** @type {Drag | null} */
  #drag = null;
  /** @type {HTMLElement | null} */
  #focusBefore = null;
  // In a container of another size, the caption may stand outside.
  #sizes = new ResizeObserver(() => this.#arrange());

  /**
   * Shows the window and gives it the focus.
   * @param {HTMLElement} container positioned, and as large as the window may go
   * @param {FloatingWindowOptions} options
   */
  constructor(container, options) {
    const { title, content, left = 0, top = 0, width, height, onClosed, onFocused } = options;
    this.#container = container;
    this.#content = content;
    this.#onClosed = onClosed;
    this.#onFocused = onFocused;
    this.#place = { left, top };

    this.#title = make('span', 'zav-window-title');
    this.#title.id = `zav-window-title-${++windowsMade}`;
    const close = make('button', 'zav-window-close');
    close.ariaLabel = 'Close';
    close.addEventListener('click', () => this.#close());
    this.#caption = make('div', 'zav-window-caption', this.#title, close);
    this.#body = make('div', 'zav-window-body', content);
    this.#frame = make('div', 'zav-window', this.#caption, this.#body);
    this.#frame.role = 'dialog';
    this.#frame.tabIndex = -1;
    this.#frame.setAttribute('aria-labelledby', this.#title.id);

    this.#listen();
    this.setTitle(title);
    this.resize(width, height);
    container.append(this.#frame);
    this.#sizes.observe(container);
    this.#show();
  }

  focus() {
    moveFocus(this.#content);
    if (!this.#hasFocus()) moveFocus(this.#frame);
  }

  /** @param {number} zIndex */
  bringToFront(zIndex) {
    this.#frame.style.zIndex = String(zIndex);
  }

  /** @param {string} title */
  setTitle(title) {
    this.#title.textContent = title;
  }

  /**
   * @param {number} left
   * @param {number} top
   */
  moveTo(left, top) {
    this.#place = { left, top };
    this.#arrange();
  }

  /**
   * @param {number} width of the content
   * @param {number} height of the content
   */
  resize(width, height) {
    this.#body.style.width = `${width}px`;
    this.#body.style.height = `${height}px`;
    this.#arrange();
  }

  /** @param {boolean} isVisible */
  setVisible(isVisible) {
    if (isVisible !== this.#frame.hidden) return;
    if (!isVisible) this.#giveFocusBack();
    this.#frame.hidden = !isVisible;
    if (isVisible) this.#show();
  }

  /** Takes the window away without a word to its owner. */
  remove() {
    this.#sizes.disconnect();
    this.#giveFocusBack();
    this.#frame.remove();
  }

  #show() {
    this.#focusBefore = focusedIn(this.#container);
    this.#arrange();
    this.focus();
  }

  #close() {
    this.remove();
    this.#onClosed?.();
  }

  #listen() {
    this.#frame.addEventListener('keydown', (event) => {
      if (event.key !== 'Escape') return;
      event.preventDefault();
      event.stopPropagation();
      this.#close();
    });
    this.#frame.addEventListener('focusin', () => {
      if (!movingFocus) this.#onFocused?.();
    });
    this.#caption.addEventListener('pointerdown', (event) => this.#startDrag(event));
    this.#caption.addEventListener('pointermove', (event) => this.#continueDrag(event));
    this.#caption.addEventListener('pointercancel', () => this.#cancelDrag());
    // Comes after every ending, also one that no release announces.
    this.#caption.addEventListener('lostpointercapture', () => (this.#drag = null));
  }

  /** @param {PointerEvent} event */
  #startDrag(event) {
    const isOnButton = event.target instanceof HTMLButtonElement;
    if (this.#drag || event.button !== 0 || isOnButton) return;
    this.#caption.setPointerCapture(event.pointerId);
    this.#drag = {
      pointerId: event.pointerId,
      from: { x: event.clientX, y: event.clientY },
      origin: this.#nearestPlace(),
    };
  }

  /** @param {PointerEvent} event */
  #continueDrag(event) {
    if (event.pointerId !== this.#drag?.pointerId) return;
    const { from, origin } = this.#drag;
    const scale = this.#container.getBoundingClientRect().width / this.#container.offsetWidth || 1;
    const left = origin.left + (event.clientX - from.x) / scale;
    const top = origin.top + (event.clientY - from.y) / scale;
    this.moveTo(left, top);
    // Where it was dragged to is where it could go: a container that grows does not draw it along.
    this.#place = this.#nearestPlace();
  }

  #cancelDrag() {
    if (!this.#drag) return;
    const { left, top } = this.#drag.origin;
    this.#drag = null;
    this.moveTo(left, top);
  }

  #nearestPlace() {
    const maxLeft = this.#container.clientWidth - this.#frame.offsetWidth;
    const maxTop = this.#container.clientHeight - this.#caption.offsetHeight;
    return { left: clamp(this.#place.left, maxLeft), top: clamp(this.#place.top, maxTop) };
  }

  #arrange() {
    const { left, top } = this.#nearestPlace();
    this.#frame.style.transform = `translate(${left}px, ${top}px)`;
  }

  #giveFocusBack() {
    if (this.#hasFocus()) moveFocus(this.#focusBefore);
  }

  #hasFocus() {
    return this.#frame.contains(focusedIn(this.#frame));
  }
}

/** @param {HTMLElement | null} element */
function moveFocus(element) {
  movingFocus = true;
  element?.focus({ preventScroll: true });
  movingFocus = false;
}

/**
 * @param {number} value
 * @param {number} max
 */
function clamp(value, max) {
  return Math.max(0, Math.min(value, max));
}

export const styles = `
.zav-window {
  position: absolute; left: 0; top: 0; display: flex; flex-direction: column; box-sizing: border-box;
  max-width: 100%; max-height: 100%; overflow: hidden; outline: none;
  border: 1px solid #8e9aab; border-radius: 8px; background: #fff; color: #1c2430;
  font: 14px/1.4 system-ui, sans-serif; box-shadow: 0 8px 24px rgb(20 30 50 / 28%);
}
.zav-window[hidden] { display: none; }
.zav-window-caption {
  display: flex; flex: none; align-items: center; padding: 0 4px 0 12px; height: 32px;
  border-bottom: 1px solid #d5dae3; background: #eef1f6; cursor: default; touch-action: none;
  user-select: none; -webkit-user-select: none;
}
.zav-window:focus-within .zav-window-caption { background: #d3e1f4; }
.zav-window-title {
  flex: 1; overflow: hidden; font-weight: 600; text-overflow: ellipsis; white-space: nowrap;
}
.zav-window-close {
  flex: none; padding: 0; width: 26px; height: 24px; border: 0; border-radius: 5px;
  background: none; color: inherit; font: inherit;
}
.zav-window-close::before { content: '\\2715'; }
.zav-window-close:hover { background: #c42b1c; color: #fff; }
.zav-window-close:focus-visible { outline: 2px solid #12365e; outline-offset: -2px; }
.zav-window-body { flex: 0 1 auto; max-width: 100%; overflow: auto; }
`;
