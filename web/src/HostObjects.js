/**
 * The host objects of an element: what the page gave, with something sensible for what it left out.
 */
import { showMessage } from './dom/MessageDialog.js';
import { Question } from './runtime/Variants.js';

const OK = 1;

/**
 * @typedef {import('./zav-drag-drop.js').Parent} Parent
 * @typedef {import('./zav-drag-drop.js').Support} Support
 */

/**
 * What the parent object of an element tells about.
 * @typedef {object} ParentEvents
 * @property {(entry: import('./zav-drag-drop.js').LogEntry) => void} logged
 * @property {(message: import('./zav-drag-drop.js').AnsweredMessage) => void} answered
 */

/** The parent object that the component sees. */
export class ParentObject {
  #given;
  #graphicsPath;
  #dialogs;
  #events;
  /** The message shown last: the next one waits for it. */
  /** @type {Promise<unknown>} */
  #shown = Promise.resolve();

  /**
   * @param {() => Parent | undefined} given the page's own parent object
   * @param {(name: string) => string} graphicsPath for a parent that names no pictures
   * @param {() => HTMLElement | undefined} dialogs where messages are shown
   * @param {ParentEvents} events
   */
  constructor(given, graphicsPath, dialogs, events) {
    this.#given = given;
    this.#graphicsPath = graphicsPath;
    this.#dialogs = dialogs;
    this.#events = events;
  }

  /** @type {(number: number, description: string, source: string, extra: string, routine: string, line: number) => void} */
  LogError(number, description, source, extra, routine, line) {
    this.#events.logged({ number, description, source, extra, routine, line });
    this.#given()?.LogError?.(number, description, source, extra, routine, line);
  }

  /** @param {string} name */
  GetGraphicsPath(name) {
    return this.#given()?.GetGraphicsPath?.(name) ?? this.#graphicsPath(name);
  }

  /**
   * @param {string} text
   * @param {number} style
   * @param {string} title
   * @returns {number | Question}
   */
  ShowMessage(text, style, title) {
    const answer = this.#given()?.ShowMessage?.(text, style, title);
    const tell = (/** @type {number} */ given) =>
      this.#events.answered({ text, style, title, answer: given });
    if (typeof answer === 'number') {
      tell(answer);
      return answer;
    }
    const question = answer
      ? new Question(Promise.resolve(answer), () => {})
      : this.#showDialog(text, style, title);
    // The component hears of the answer first.
    queueMicrotask(() => question.answered.then(tell, () => {}));
    return question;
  }

  /**
   * @param {string} text
   * @param {number} style
   * @param {string} title
   */
  #showDialog(text, style, title) {
    let dropped = false;
    /** @type {(() => void) | undefined} */
    let close;
    const answered = this.#shown.then(() => {
      const container = this.#dialogs();
      if (dropped || !container) return OK;
      const dialog = showMessage(container, { text, title, style });
      close = () => dialog.close();
      return dialog.answered;
    });
    this.#shown = answered;
    return new Question(answered, () => {
      dropped = true;
      close?.();
    });
  }
}
