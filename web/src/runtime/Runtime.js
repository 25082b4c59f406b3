/**
 * The WebAssembly module: loaded once for a page, shared by all its items. This is the one place
 * that knows memory and exports.
 */
import createModule from '../../../build/web/bin/zavdragdrop.mjs';
import { PageObjects } from './PageObjects.js';

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** Numbers of PointerAct in Exports.cpp. */
export const PointerAct = { press: 0, move: 1, release: 2, cancel: 3, loseRelease: 4, click: 5 };

/** Flags of an answered page event. */
export const PageEventFlag = { suppressed: 1, clearSelection: 2, stopped: 4 };

/**
 * What the component asks of the page for one item. Measures are CSS pixels.
 * @typedef {object} View
 * @property {(words: Int32Array, texts: Uint8Array) => void} present
 * @property {(words: Int32Array) => void} arrangeWindows
 * @property {(pane: number, html: string, ticket: number) => void} loadPage
 * @property {(timer: number, milliseconds: number) => void} startTimer
 * @property {(timer: number) => void} stopTimer
 * @property {Pick<import('../dom/Pages.js').Pages, 'richTextHeight' | 'drop' | 'contentHeight' | 'scrollTop'>}
 *   pages
 * @property {Pick<import('../dom/Pictures.js').Pictures, 'name'>} pictures
 */

/** The exports, with their texts and bytes put into memory and taken out of it. */
export class Exports {
  #module;

  /** @param {any} module */
  constructor(module) {
    this.#module = module;
    /** @type {(number: number) => number} */
    this.create = module._zav_create;
    /** @type {(number: number) => void} */
    this.dispose = module._zav_dispose;
    /** @type {(number: number) => number} */
    this.busy = module._zav_busy;
    /** @type {(number: number) => number} */
    this.hostWindow = module._zav_host_window;
    /** @type {(object: number) => void} */
    this.release = module._zav_release;
    /** @type {(question: number, answer: number) => void} */
    this.answer = module._zav_answer;
    /** @type {(number: number, act: number, control: number, x: number, y: number) => void} */
    this.pointer = module._zav_pointer;
    /** @type {(number: number, control: number, keyCode: number, alt: boolean) => void} */
    this.key = module._zav_key;
    /** @type {(number: number, control: number) => void} */
    this.focus = module._zav_focus;
    /** @type {(number: number, frame: number, x: number, y: number) => void} */
    this.scroll = module._zav_scroll;
    /** @type {(number: number, splitter: number, bar: number, pixels: number) => void} */
    this.dragBar = module._zav_drag_bar;
    /** @type {(number: number, window: number) => void} */
    this.closeWindow = module._zav_close_window;
    /** @type {(number: number, window: number) => void} */
    this.raiseWindow = module._zav_raise_window;
    /** @type {(number: number, ticket: number) => void} */
    this.pageLoaded = module._zav_page_loaded;
    /** @type {(number: number, timer: number) => void} */
    this.timer = module._zav_timer;
  }

  /**
   * @param {number} number
   * @param {string} path
   * @param {{number: number, width: number, height: number}} picture
   */
  addPicture(number, path, { number: picture, width, height }) {
    this.#with([path], (at, size) =>
      this.#module._zav_add_picture(number, at, size, picture, width, height),
    );
  }

  /**
   * @param {number} number
   * @param {string} tag
   * @param {{number: number, width: number, height: number}} picture
   */
  addResource(number, tag, { number: picture, width, height }) {
    this.#with([tag], (at, size) =>
      this.#module._zav_add_resource(number, at, size, picture, width, height),
    );
  }

  /**
   * @param {number} number
   * @param {string} path
   * @param {Uint8Array} bytes
   */
  addFile(number, path, bytes) {
    this.#with([path, bytes], (at, size, data, count) =>
      this.#module._zav_add_file(number, at, size, data, count),
    );
  }

  /**
   * @param {number} number
   * @param {string} progId
   * @param {number} factory
   */
  registerClass(number, progId, factory) {
    this.#with([progId], (at, size) => this.#module._zav_register_class(number, at, size, factory));
  }

  /**
   * @param {number} number
   * @param {number} pane
   * @param {string} type
   * @param {string} element its id
   * @param {boolean} alt
   * @param {number} keyCode
   * @returns {number} flags of PageEventFlag
   */
  pageEvent(number, pane, type, element, alt, keyCode) {
    return this.#with([type, element], (at, size, id, idSize) =>
      this.#module._zav_page_event(number, pane, at, size, id, idSize, alt, keyCode),
    );
  }

  /**
   * @param {number} object
   * @param {string} member
   * @param {Uint8Array} args
   * @param {boolean} isPut
   * @returns {Uint8Array}
   */
  invoke(object, member, args, isPut) {
    const answer = this.#with([member, args], (at, size, data, count) =>
      this.#module._zav_invoke(object, at, size, data, count, isPut),
    );
    if (!answer) throw new Error('ZavDragDrop has run out of memory');
    const size = this.#module.HEAP32[answer >> 2];
    const bytes = this.#module.HEAPU8.slice(answer + 4, answer + 4 + size);
    this.#module._free(answer);
    return bytes;
  }

  /**
   * Puts texts and bytes into memory for a call, each as address and size.
   * @param {(string | Uint8Array)[]} values
   * @param {(...places: number[]) => number} call
   */
  #with(values, call) {
    const bytes = values.map((value) =>
      typeof value === 'string' ? encoder.encode(value) : value,
    );
    const whole = bytes.reduce((sum, each) => sum + each.length, 0);
    const start = this.#module._malloc(whole + 1);
    if (!start) throw new Error('ZavDragDrop has run out of memory');
    let at = start;
    const places = [];
    for (const each of bytes) {
      this.#module.HEAPU8.set(each, at);
      places.push(at, each.length);
      at += each.length;
    }
    try {
      return call(...places);
    } finally {
      this.#module._free(start);
    }
  }
}

/**
 * @param {string | URL} wasm
 * @param {WebAssembly.Imports} imports
 */
async function instantiate(wasm, imports) {
  const response = await fetch(wasm);
  if (!response.ok) throw new Error(`${wasm} was answered with ${response.status}`);
  // Streaming insists on a media type that not every server knows.
  return response.headers.get('content-type') === 'application/wasm'
    ? WebAssembly.instantiateStreaming(response, imports)
    : WebAssembly.instantiate(await response.arrayBuffer(), imports);
}

/** @type {Promise<Runtime> | undefined} */
let loading;

export class Runtime {
  /** @type {Map<number, View>} */
  #views = new Map();
  #last = 0;

  /**
   * The page's one module; every call gives the same.
   * @param {string | URL} wasm
   * @returns {Promise<Runtime>}
   */
  static load(wasm) {
    loading ??= Runtime.#create(wasm).catch((error) => {
      loading = undefined; // a later try may find the network again
      throw error;
    });
    return loading;
  }

  /** @param {string | URL} wasm */
  static async #create(wasm) {
    const page = {};
    const module = await createModule({
      page,
      instantiate: (imports) => instantiate(wasm, imports),
    });
    const runtime = new Runtime(module);
    Object.assign(page, runtime.#page());
    return runtime;
  }

  /** @param {any} module */
  constructor(module) {
    this.module = module;
    this.exports = new Exports(module);
    this.objects = new PageObjects(this.exports);
  }

  get hasItems() {
    return this.#views.size > 0;
  }

  /**
   * @param {(number: number) => View} makeView
   * @returns {{number: number, item: number, view: View}} item: its number as an object
   */
  create(makeView) {
    const number = ++this.#last;
    const view = makeView(number);
    this.#views.set(number, view);
    const item = this.exports.create(number);
    if (!item) throw new Error('ZavDragDrop has run out of memory');
    return { number, item, view };
  }

  /**
   * @param {number} number
   * @param {number} item
   */
  dispose(number, item) {
    this.exports.dispose(number);
    this.exports.release(item);
    this.#views.delete(number);
  }

  /** @param {number} at @param {number} size */
  #text(at, size) {
    return decoder.decode(this.module.HEAPU8.subarray(at, at + size));
  }

  /** What PageBrowser.cpp calls. */
  #page() {
    const { module, objects } = this;
    // None for an item that was disposed of in the middle of a call, which goes on to its end.
    const view = (/** @type {number} */ number) => this.#views.get(number);
    const words = (/** @type {number} */ at, /** @type {number} */ count) =>
      module.HEAP32.subarray(at >> 2, (at >> 2) + count);
    return {
      /** @type {(number: number, at: number, count: number, texts: number, size: number) => void} */
      present: (number, at, count, texts, size) =>
        view(number)?.present(words(at, count), module.HEAPU8.subarray(texts, texts + size)),
      /** @type {(number: number, at: number, count: number) => void} */
      arrangeWindows: (number, at, count) => view(number)?.arrangeWindows(words(at, count)),
      /** @type {(...values: number[]) => number} */
      richTextHeight: (number, isHtml, at, size, points, style, font, fontSize, width) =>
        view(number)?.pages.richTextHeight(
          {
            isHtml: isHtml !== 0,
            text: this.#text(at, size),
            font: { points, style, name: this.#text(font, fontSize) },
          },
          width,
        ) ?? 0,
      /** @type {(...values: number[]) => void} */
      loadPage: (number, pane, at, size, ticket) =>
        view(number)?.loadPage(pane, this.#text(at, size), ticket),
      /** @type {(number: number, pane: number) => void} */
      dropPage: (number, pane) => view(number)?.pages.drop(pane),
      /** @type {(...values: number[]) => number} */
      pageContentHeight: (number, pane, width, margin) =>
        view(number)?.pages.contentHeight(pane, width, margin) ?? 0,
      /** @type {(number: number, pane: number) => number} */
      pageScrollTop: (number, pane) => view(number)?.pages.scrollTop(pane) ?? 0,
      /** @type {(number: number, timer: number, milliseconds: number) => void} */
      startTimer: (number, timer, milliseconds) => view(number)?.startTimer(timer, milliseconds),
      /** @type {(number: number, timer: number) => void} */
      stopTimer: (number, timer) => view(number)?.stopTimer(timer),
      /** @type {(number: number, at: number, size: number, picture: number) => void} */
      namePicture: (number, at, size, picture) =>
        view(number)?.pictures.name(this.#text(at, size), picture),
      /** @type {(...values: number[]) => number} */
      invoke: (object, member, memberSize, args, size, isPut, answerSize) => {
        const answer = objects.answerCall(
          object,
          this.#text(member, memberSize),
          module.HEAPU8.slice(args, args + size),
          isPut !== 0,
        );
        const at = module._malloc(answer.length);
        if (!at) return 0;
        module.HEAPU8.set(answer, at);
        module.HEAP32[answerSize >> 2] = answer.length;
        return at;
      },
      /** @type {(object: number) => void} */
      releaseObject: (object) => objects.releaseObject(object),
      /** @type {(question: number) => void} */
      dropQuestion: (question) => objects.dropQuestion(question),
      // What goes wrong on the page's side must not stop the component.
      /** @type {(error: unknown) => void} */
      failed: (error) => console.error('zav-drag-drop:', error),
    };
  }
}
