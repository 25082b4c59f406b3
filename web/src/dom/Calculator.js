/**
 * A small calculator in a window of its own, worked with its buttons or, while it has the focus, with
 * the keyboard.
 */

import { CLEARED, displayOf, press } from './CalculatorEngine.js';
import { make } from './elements.js';
import { FloatingWindow } from './FloatingWindow.js';

/**
 * Row by row: what stands on a button; where that differs, the key that it means to the engine, and
 * what it is called.
 * @type {[face: string, key?: string, name?: string][]}
 */
const BUTTONS = [
  ['MC', 'MC', 'Memory clear'],
  ['MR', 'MR', 'Memory recall'],
  ['M+', 'M+', 'Memory add'],
  ['CE', 'CE', 'Clear entry'],
  ['C', 'C', 'Clear'],
  ['7'],
  ['8'],
  ['9'],
  ['÷', '/', 'Divide'],
  ['√', 'sqrt', 'Square root'],
  ['4'],
  ['5'],
  ['6'],
  ['×', '*', 'Multiply'],
  ['%', 'percent', 'Percent'],
  ['1'],
  ['2'],
  ['3'],
  ['−', '-', 'Subtract'],
  ['⌫', 'backspace', 'Backspace'],
  ['0'],
  ['.', '.', 'Decimal point'],
  ['±', 'sign', 'Change sign'],
  ['+', '+', 'Add'],
  ['=', '=', 'Equals'],
];

/**
 * Keys of a keyboard that have another name to the engine.
 * @type {Map<string, string>}
 */
const KEYBOARD = new Map([
  ['Enter', '='],
  [',', '.'],
  ['%', 'percent'],
  ['r', 'sqrt'],
  ['Backspace', 'backspace'],
  ['Delete', 'CE'],
  ['c', 'C'],
]);

// Characters that fit in the display in its usual size.
const MOST_LARGE = 14;

const WIDTH = 256;
const HEIGHT = 236;

export class Calculator extends FloatingWindow {
  #state = CLEARED;
  #display;
  #memory;

  /**
   * @param {HTMLElement} container as a FloatingWindow's
   * @param {{left?: number, top?: number, onClosed?: () => void, onFocused?: () => void}} options
   */
  constructor(container, options = {}) {
    const display = make('output', 'zav-calculator-display');
    const memory = make('span', 'zav-calculator-memory', 'M');
    const keys = make('div', 'zav-calculator-keys');
    const content = make('div', 'zav-calculator', memory, display, keys);
    // The keyboard works from anywhere in it, not only from a button.
    content.tabIndex = -1;
    super(container, {
      left: 24,
      top: 24,
      ...options,
      title: 'Calculator',
      content,
      width: WIDTH,
      height: HEIGHT,
    });
    this.#display = display;
    this.#memory = memory;
    keys.append(...BUTTONS.map((button) => this.#button(...button)));
    // A press on a button leaves the focus where it is, so that Enter goes on meaning "equals".
    content.addEventListener('mousedown', (event) => {
      event.preventDefault();
      content.focus({ preventScroll: true });
    });
    content.addEventListener('keydown', (event) => this.#onKeyDown(event));
    this.#show();
  }

  /**
   * @param {string} face
   * @param {string} [key]
   * @param {string} [name]
   */
  #button(face, key = face, name = face) {
    const button = make('button', '', face);
    button.classList.toggle('zav-calculator-digit', /^[\d.]$/.test(key));
    button.classList.toggle('zav-calculator-equals', key === '=');
    button.ariaLabel = name;
    button.addEventListener('click', () => this.#press(key));
    return button;
  }

  /** @param {KeyboardEvent} event */
  #onKeyDown(event) {
    const key = KEYBOARD.get(event.key) ?? event.key;
    const isOurs = BUTTONS.some(([face, meant = face]) => meant === key);
    if (!isOurs || event.ctrlKey || event.altKey || event.metaKey) return;
    event.stopPropagation();
    // A button that was reached with the keyboard is also pressed with it.
    if (event.key === 'Enter' && event.target instanceof HTMLButtonElement) return;
    event.preventDefault();
    this.#press(key);
  }

  /** @param {string} key */
  #press(key) {
    this.#state = press(this.#state, key);
    this.#show();
  }

  #show() {
    const text = displayOf(this.#state).replaceAll('-', '−');
    this.#display.textContent = text;
    this.#display.classList.toggle('zav-calculator-long', text.length > MOST_LARGE);
    this.#memory.hidden = this.#state.memory === 0;
  }
}

export const styles = `
.zav-calculator {
  display: grid; grid-template-rows: 44px 1fr; gap: 8px; position: relative; box-sizing: border-box;
  padding: 10px; width: 100%; height: 100%; background: #eef1f6; outline: none;
}
.zav-calculator-display {
  padding: 0 10px; overflow: hidden; border: 1px solid #b9c2d0; border-radius: 6px; background: #fff;
  font: 19px/42px system-ui, sans-serif; font-variant-numeric: tabular-nums; text-align: right;
  white-space: nowrap;
}
.zav-calculator-long { font-size: 16px; }
.zav-calculator-memory {
  position: absolute; left: 16px; top: 12px; color: #2f6fb7; font-size: 11px; font-weight: 700;
}
.zav-calculator-memory[hidden] { display: none; }
.zav-calculator-keys { display: grid; grid-template: repeat(5, 1fr) / repeat(5, 1fr); gap: 5px; }
.zav-calculator button {
  padding: 0; border: 1px solid #c3cbd8; border-radius: 6px; background: #dfe5ee; color: inherit;
  font: 14px system-ui, sans-serif; touch-action: manipulation;
}
.zav-calculator button.zav-calculator-digit { background: #fff; font-size: 16px; }
.zav-calculator button.zav-calculator-equals {
  border-color: #2f6fb7; background: #2f6fb7; color: #fff; font-size: 16px;
}
.zav-calculator button:hover { filter: brightness(.95); }
.zav-calculator button:active { filter: brightness(.87); }
.zav-calculator button:focus-visible { outline: 2px solid #12365e; outline-offset: 1px; }
`;
