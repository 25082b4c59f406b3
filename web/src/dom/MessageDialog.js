/**
 * A question or a message for the candidate, over the element only: the rest of the page stays in use.
 */

import { focusedIn, make } from './elements.js';

/**
 * @typedef {object} Message
 * @property {string} text shown as it is, with its line breaks
 * @property {string} title
 * @property {number} style lowest four bits 1: OK and Cancel, else OK alone; with 16: an error
 */

/**
 * @typedef {object} Dialog
 * @property {Promise<number>} answered 1 OK, 2 Cancel or closed without an answer
 * @property {() => void} close takes the dialog away
 */

const OK = 1;
const CANCEL = 2;
const ERROR = 16;

let dialogsMade = 0;

/**
 * Shows a message and keeps the focus within it until it is answered. Enter takes the button that has
 * the focus; Escape takes Cancel, or OK where that is the only answer.
 * @param {HTMLElement} container positioned, and as large as what the dialog is to cover
 * @param {Message} message
 * @returns {Dialog}
 */
export function showMessage(container, message) {
  return new MessageDialog(container, message);
}

/** @implements {Dialog} */
class MessageDialog {
  #focusBefore;
  #cover = make('div', 'zav-dialog-cover');
  #text = make('div', 'zav-dialog-text');
  /** @type {HTMLButtonElement[]} */
  #buttons;
  /** @type {(answer: number) => void} */
  #resolve = () => {};
  /** @type {Promise<number>} */
  answered = new Promise((resolve) => (this.#resolve = resolve));

  /**
   * @param {HTMLElement} container
   * @param {Message} message
   */
  constructor(container, { text, title, style }) {
    this.#focusBefore = focusedIn(container);
    this.#text.textContent = text;
    const ok = this.#button('OK', OK);
    this.#buttons = style % 16 === 1 ? [ok, this.#button('Cancel', CANCEL)] : [ok];
    this.#cover.append(this.#panel(title, (style & ERROR) !== 0));
    // A press beside the buttons does not take the focus, and with it the keys, out of the dialog.
    this.#cover.tabIndex = -1;
    this.#cover.addEventListener('keydown', (event) => this.#onKeyDown(event));
    container.append(this.#cover);
    ok.focus({ preventScroll: true });
  }

  close() {
    this.#answer(CANCEL);
  }

  /**
   * @param {string} caption
   * @param {number} answer
   */
  #button(caption, answer) {
    const button = make('button', 'zav-dialog-button', caption);
    button.addEventListener('click', () => this.#answer(answer));
    return button;
  }

  /**
   * @param {string} title
   * @param {boolean} isError
   */
  #panel(title, isError) {
    const heading = make('div', 'zav-dialog-title', title);
    const panel = make('div', 'zav-dialog', heading, this.#text);
    panel.append(make('div', 'zav-dialog-buttons', ...this.#buttons));
    panel.classList.toggle('zav-dialog-error', isError);
    const id = `zav-dialog-${++dialogsMade}`;
    heading.id = `${id}-title`;
    this.#text.id = `${id}-text`;
    panel.role = 'alertdialog';
    panel.ariaModal = 'true';
    panel.setAttribute('aria-labelledby', heading.id);
    panel.setAttribute('aria-describedby', this.#text.id);
    return panel;
  }

  /** @param {KeyboardEvent} event */
  #onKeyDown(event) {
    // The key that brought the dialog up may still be held down; it is no answer.
    const isHeldDown = event.repeat && (event.key === 'Enter' || event.key === ' ');
    if (event.key === 'Escape') this.#buttons.at(-1)?.click();
    else if (event.key === 'Tab') this.#moveFocus(event.shiftKey ? -1 : 1);
    else if (!isHeldDown) return;
    event.preventDefault();
    event.stopPropagation();
  }

  /** @param {number} step */
  #moveFocus(step) {
    const isScrolled = this.#text.scrollHeight > this.#text.clientHeight;
    this.#text.tabIndex = isScrolled ? 0 : -1;
    const stops = isScrolled ? [...this.#buttons, this.#text] : this.#buttons;
    const current = stops.findIndex((stop) => stop === focusedIn(this.#cover));
    const next = current < 0 && step < 0 ? -1 : (current + step) % stops.length;
    stops.at(next)?.focus();
  }

  /** @param {number} answer */
  #answer(answer) {
    const hadFocus = this.#cover.contains(focusedIn(this.#cover));
    this.#cover.remove();
    if (hadFocus) this.#focusBefore?.focus({ preventScroll: true });
    this.#resolve(answer);
  }
}

export const styles = `
.zav-dialog-cover {
  position: absolute; inset: 0; display: grid; place-items: center;
  padding: 12px; background: rgb(18 28 44 / 40%); outline: none; overscroll-behavior: contain;
}
.zav-dialog {
  display: flex; flex-direction: column; box-sizing: border-box; overflow: hidden;
  min-width: min(280px, 100%); max-width: min(440px, 100%); max-height: 100%;
  border-radius: 10px; border-top: 4px solid #2f6fb7; background: #fff; color: #1c2430;
  font: 14px/1.45 system-ui, sans-serif; box-shadow: 0 12px 36px rgb(10 20 40 / 35%);
}
.zav-dialog-error { border-top-color: #c0392b; }
.zav-dialog-title { flex: none; padding: 14px 20px 0; font-size: 16px; font-weight: 600; }
.zav-dialog-title:empty { padding-top: 8px; }
.zav-dialog-error .zav-dialog-title::before {
  content: '!'; display: inline-block; margin-right: 8px; width: 20px; border-radius: 50%;
  background: #c0392b; color: #fff; font: bold 14px/20px system-ui, sans-serif; text-align: center;
}
.zav-dialog-text {
  padding: 8px 20px 4px; overflow: auto; white-space: pre-wrap; overflow-wrap: anywhere;
}
.zav-dialog-buttons { display: flex; flex: none; justify-content: end; gap: 8px; padding: 12px 20px 16px; }
.zav-dialog-button {
  min-width: 84px; padding: 6px 16px; border: 1px solid #aab4c3; border-radius: 6px;
  background: #fff; color: inherit; font: inherit;
}
.zav-dialog-button:first-child { border-color: #2f6fb7; background: #2f6fb7; color: #fff; }
.zav-dialog-button:hover { filter: brightness(.94); }
.zav-dialog-button:focus-visible { outline: 2px solid #12365e; outline-offset: 2px; }
`;
