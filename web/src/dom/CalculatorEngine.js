/**
 * The arithmetic of a pocket calculator: what its display shows after each key. Keys work at once, in
 * the order in which they are pressed; there is no precedence.
 *
 * Numbers are shown with 12 significant digits and kept with more, so that neither 0.1 + 0.2 nor a
 * third times three shows the noise of binary fractions.
 */

/** @typedef {'+' | '-' | '*' | '/'} Operator */

/**
 * A digit, '.', an operator, '=', 'sign', 'percent', 'sqrt', 'backspace', 'C', 'CE', 'M+', 'MR', 'MC'.
 * Any other key does nothing.
 * @typedef {string} Key
 */

/**
 * @typedef {object} State
 * @property {string} typed the number being typed, '' while the display shows a result
 * @property {number} value what the display shows
 * @property {string} error shown instead of the value; ended by C only
 * @property {number} left what stands before the operator
 * @property {Operator | null} operator waiting for its right side
 * @property {boolean} hasRight whether that has been given
 * @property {{operator: Operator, right: number} | null} repeat what = does when nothing waits
 * @property {number} memory
 */

/** @type {Readonly<State>} */
export const CLEARED = Object.freeze({
  typed: '',
  value: 0,
  error: '',
  left: 0,
  operator: null,
  hasRight: false,
  repeat: null,
  memory: 0,
});

const DIGITS_SHOWN = 12;
const LARGEST_PLAIN = 1e12; // longer numbers are shown with an exponent
// A sum as small as this beside its larger part is the noise of what was rounded in the parts.
const NOISE = 1e-13;

/**
 * @param {Readonly<State>} state
 * @param {Key} key
 * @returns {Readonly<State>} the state after the key
 */
export function press(state, key) {
  if (key === 'C') return { ...CLEARED, memory: state.memory };
  if (state.error !== '') return state;
  if (/^[\d.]$/.test(key)) return typeDigit(state, key);
  if (isOperator(key)) return chooseOperator(state, key);
  return ACTIONS.get(key)?.(state) ?? state;
}

/**
 * @param {Readonly<State>} state
 * @returns {string} a number with a decimal point, or what went wrong
 */
export function displayOf({ error, typed, value }) {
  if (error || typed) return error || typed;
  const shown = Number(value.toPrecision(DIGITS_SHOWN));
  return Math.abs(shown) < LARGEST_PLAIN ? String(shown) : shown.toExponential();
}

/** @type {Map<Key, (state: Readonly<State>) => Readonly<State>>} */
const ACTIONS = new Map([
  ['=', equals],
  ['CE', (state) => ({ ...state, typed: '', value: 0 })],
  ['backspace', (state) => (state.typed ? retype(state, state.typed.slice(0, -1)) : state)],
  ['sign', changeSign],
  ['percent', (state) => show(state, percentOf(state))],
  ['sqrt', (state) => show(state, Math.sqrt(state.value))],
  ['M+', addToMemory],
  ['MR', (state) => show(state, state.memory)],
  ['MC', (state) => ({ ...state, memory: 0 })],
]);

/**
 * @param {string} key
 * @returns {key is Operator}
 */
function isOperator(key) {
  return /^[-+*/]$/.test(key);
}

/**
 * @param {Readonly<State>} state
 * @param {string} key
 */
function typeDigit(state, key) {
  const { typed } = state;
  if (key === '.') return typed.includes('.') ? state : retype(state, (typed || '0') + '.');
  if (typed.replace(/\D/g, '').length >= DIGITS_SHOWN) return state;
  return retype(state, typed.replace(/^(-?)0$/, '$1') + key);
}

/**
 * @param {Readonly<State>} state
 * @param {string} text
 */
function retype(state, text) {
  const typed = /\d/.test(text) ? text : '0';
  return { ...state, typed, value: Number(typed), hasRight: true };
}

/** @param {Readonly<State>} state */
function changeSign(state) {
  const { typed, value } = state;
  if (!typed) return show(state, -value);
  return retype(state, typed.startsWith('-') ? typed.slice(1) : `-${typed}`);
}

/**
 * A share of what stands before the operator is added or taken off; else it is hundredths.
 * @param {Readonly<State>} state
 */
function percentOf({ left, operator, value }) {
  const whole = operator === '+' || operator === '-' ? left : 1;
  return (whole * value) / 100;
}

/** @param {Readonly<State>} state */
function addToMemory(state) {
  const memory = add(state.memory, state.value);
  return Number.isFinite(memory) ? { ...state, typed: '', memory } : show(state, memory);
}

/**
 * @param {Readonly<State>} state
 * @param {Operator} operator
 */
function chooseOperator(state, operator) {
  const isComplete = state.operator && state.hasRight;
  const done = isComplete ? solve(state, state.operator, state.left, state.value) : state;
  return { ...done, typed: '', left: done.value, operator, hasRight: false };
}

/** @param {Readonly<State>} state */
function equals(state) {
  const { left, operator, value, repeat } = state;
  if (operator) {
    const repeated = { operator, right: value };
    return { ...solve(state, operator, left, value), operator: null, repeat: repeated };
  }
  if (repeat) return solve(state, repeat.operator, value, repeat.right);
  return { ...state, typed: '' };
}

/**
 * @param {Readonly<State>} state
 * @param {Operator | null} operator
 * @param {number} left
 * @param {number} right
 * @returns {Readonly<State>}
 */
function solve(state, operator, left, right) {
  switch (operator) {
    case '+':
      return show(state, add(left, right));
    case '-':
      return show(state, add(left, -right));
    case '*':
      return show(state, left * right);
    default:
      if (right === 0) return { ...state, typed: '', error: 'Cannot divide by zero' };
      return show(state, left / right);
  }
}

/**
 * @param {number} left
 * @param {number} right
 */
function add(left, right) {
  const sum = left + right;
  return Math.abs(sum) < NOISE * Math.max(Math.abs(left), Math.abs(right)) ? 0 : sum;
}

/**
 * Puts a number on the display that was not typed.
 * @param {Readonly<State>} state
 * @param {number} number
 * @returns {Readonly<State>}
 */
function show(state, number) {
  if (Number.isNaN(number)) return { ...state, typed: '', error: 'Invalid input' };
  if (!Number.isFinite(number)) return { ...state, typed: '', error: 'Number too large' };
  return { ...state, typed: '', value: number, hasRight: true };
}
