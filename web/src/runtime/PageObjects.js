/**
 * Objects of both sides of the module: JavaScript objects as the component calls them, and the
 * component's objects as the page calls them.
 */
import { VariantReader, VariantWriter } from './Variants.js';

/** What the component raises: an Error with automation's number and source. */
export class AutomationError extends Error {
  /**
   * @param {number} number
   * @param {string} message
   * @param {string} source
   */
  constructor(number, message, source = '') {
    super(message);
    this.name = 'AutomationError';
    this.number = number;
    this.source = source;
  }
}

const INTERNAL_ERROR = 51;
const NO_SUCH_MEMBER = 438;

/**
 * Members of host objects that answer through arguments passed by reference. A JavaScript object
 * returns these instead: one object with these names, or the bare value where there is one name.
 * @type {Record<string, string[]>}
 */
const BY_REFERENCE = {
  calculatescore: ['score'],
  maxscore: ['score'],
  minscore: ['score'],
  questionsize: ['lLeft', 'lTop', 'lWidth', 'lHeight'],
  displayint_getexternaldisplaystatus: ['lDispState', 'bViewedAll', 'sStateMsg'],
};

/**
 * The object's own name for a member, which is compared without regard to case.
 * @param {object} object
 * @param {string} member
 */
function findMember(object, member) {
  if (member in object) return member;
  const wanted = member.toLowerCase();
  for (let each = object; each && each !== Object.prototype; each = Object.getPrototypeOf(each)) {
    const found = Object.getOwnPropertyNames(each).find((name) => name.toLowerCase() === wanted);
    if (found) return found;
  }
  return undefined;
}

/**
 * @param {any} object
 * @param {string} member
 * @param {unknown[]} args changed where the member answers through them
 * @param {boolean} isPut
 */
function callMember(object, member, args, isPut) {
  const name = findMember(object, member);
  if (isPut) {
    object[name ?? member] = args[0];
    return undefined;
  }
  if (name === undefined) {
    throw new AutomationError(NO_SUCH_MEMBER, `Object does not support this member: ${member}`);
  }
  const value = typeof object[name] === 'function' ? object[name](...args) : object[name];
  const names = BY_REFERENCE[member.toLowerCase()];
  if (!names) return value;
  if (value === null || typeof value !== 'object') {
    args[0] = value;
    return undefined;
  }
  names.forEach((each, i) => {
    if (each in value) args[i] = value[each];
  });
  return value.result;
}

export class PageObjects {
  /** @type {Map<number, {object: object, references: number}>} */
  #kept = new Map();
  /** @type {Map<object, number>} */
  #numbers = new Map();
  /** @type {Map<number, import('./Variants.js').Question>} */
  #questions = new Map();
  /** @type {WeakMap<object, number>} */
  #natives = new WeakMap();
  #last = 0;
  #exports;
  #released;

  /** @param {import('./Runtime.js').Exports} exports */
  constructor(exports) {
    this.#exports = exports;
    this.#released = new FinalizationRegistry((/** @type {number} */ number) =>
      exports.release(number),
    );
  }

  /** @param {object} object */
  nativeNumberOf(object) {
    return this.#natives.get(object) ?? 0;
  }

  /**
   * The component releases the object as often as it was kept.
   * @param {object} object
   */
  keepObject(object) {
    const number = this.#numbers.get(object) ?? ++this.#last;
    const entry = this.#kept.get(number) ?? { object, references: 0 };
    entry.references++;
    this.#kept.set(number, entry);
    this.#numbers.set(object, number);
    return number;
  }

  /** @param {number} number */
  releaseObject(number) {
    const entry = this.#kept.get(number);
    if (!entry || --entry.references > 0) return;
    this.#kept.delete(number);
    this.#numbers.delete(entry.object);
  }

  /** @param {number} number */
  objectOf(number) {
    return this.#kept.get(number)?.object;
  }

  /** @param {import('./Variants.js').Question} question */
  keepQuestion(question) {
    const number = ++this.#last;
    this.#questions.set(number, question);
    const answer = (/** @type {number} */ value) => {
      if (this.#questions.delete(number)) this.#exports.answer(number, value);
    };
    question.answered.then(answer, () => answer(2));
    return number;
  }

  /** @param {number} number */
  dropQuestion(number) {
    const question = this.#questions.get(number);
    this.#questions.delete(number);
    question?.drop();
  }

  /**
   * An object of the component's: its members are called like methods, properties with a call
   * without arguments, and stored by assignment. By-reference arguments are not handed back.
   * @param {number} number
   */
  wrapNative(number) {
    const target = Object.create(null);
    const proxy = new Proxy(target, {
      get: (_, name) =>
        typeof name === 'string' && name !== 'then'
          ? (/** @type {unknown[]} */ ...args) => this.invoke(number, name, args).result
          : undefined,
      set: (_, name, value) => {
        this.invoke(number, String(name), [value], true);
        return true;
      },
    });
    this.#natives.set(proxy, number);
    this.#released.register(proxy, number);
    return proxy;
  }

  /**
   * Calls a member of an object of the component's. Throws AutomationError.
   * @param {number} number
   * @param {string} member
   * @param {unknown[]} args
   * @returns {{result: any, args: any[]}} args as the member left them
   */
  invoke(number, member, args, isPut = false) {
    const writer = new VariantWriter(this);
    for (const value of args) writer.write(value);
    const reader = new VariantReader(
      this,
      this.#exports.invoke(number, member, writer.bytes(), isPut),
    );
    const raised = reader.readNumber();
    if (raised) {
      const source = reader.readText();
      throw new AutomationError(raised, reader.readText(), source);
    }
    const result = reader.read();
    return { result, args: args.map(() => reader.read()) };
  }

  /**
   * The component calls a member of a JavaScript object.
   * @param {number} number
   * @param {string} member
   * @param {Uint8Array} args
   * @param {boolean} isPut
   * @returns {Uint8Array} the answer: 0, the result, the arguments; or the error
   */
  answerCall(number, member, args, isPut) {
    const reader = new VariantReader(this, args);
    const values = [];
    while (!reader.atEnd()) values.push(reader.read());
    const writer = new VariantWriter(this);
    try {
      const object = this.objectOf(number);
      if (!object) throw new AutomationError(INTERNAL_ERROR, 'The object has gone');
      const result = callMember(object, member, values, isPut);
      writer.writeNumber(0);
      writer.write(result);
      for (const value of values) writer.write(value);
      return writer.bytes();
    } catch (error) {
      return this.#describe(error);
    }
  }

  /** @param {any} error */
  #describe(error) {
    const writer = new VariantWriter(this);
    writer.writeNumber(
      Number.isInteger(error?.number) && error.number ? error.number : INTERNAL_ERROR,
    );
    writer.writeText(String(error?.source ?? ''));
    writer.writeText(String(error?.message ?? error));
    return writer.bytes();
  }
}
