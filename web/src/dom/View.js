/**
 * The DOM as the window system of one item: shows what the component presents, answers its measures,
 * and tells it what the candidate does. It is the view that Runtime.js asks for.
 */
import { applyChanges } from './ChangeReader.js';
import { KeyTracker } from './KeyTracker.js';
import { Pages } from './Pages.js';
import { Pictures } from './Pictures.js';
import { PointerTracker } from './PointerTracker.js';
import { SplitterBars } from './SplitterBars.js';
import { Windows } from './Windows.js';
import { FormView, PictureBoxView, ScrollFrameView, VIEW_OF_KIND } from './controls.js';
import { rootStyles } from './styles.js';

/** @param {string} className */
function makeLayer(className) {
  const layer = document.createElement('div');
  layer.className = className;
  return layer;
}

export class View {
  pictures = new Pictures();
  /** Where windows stand; places are counted from its corner. */
  layer = makeLayer('layer');
  /** Where messages are shown. */
  dialogs = makeLayer('layer dialogs');
  /** @type {Map<number, import('./controls.js').ControlView>} */
  #controls = new Map();
  /** @type {Set<ScrollFrameView>} */
  #frames = new Set();
  /** @type {Map<number, number>} */
  #timers = new Map();
  #number;
  #exports;
  #acted;
  #windows;
  #root = makeLayer('root');
  #disposed = false;
  /** Ticket numbers of pages that are shown and not told yet. */
  /** @type {number[]} */
  #loaded = [];
  #stopped = new AbortController();

  /**
   * @param {ShadowRoot} shadow
   * @param {import('../runtime/Runtime.js').Exports} exports
   * @param {number} number of the item
   * @param {(byCandidate: boolean) => void} acted something was done, by the candidate or not
   */
  constructor(shadow, exports, number, acted) {
    this.#exports = exports;
    this.#number = number;
    this.#acted = acted;
    const lobby = makeLayer('layer lobby');
    lobby.inert = true;
    this.#root.append(lobby, this.layer, this.dialogs);
    shadow.adoptedStyleSheets = [rootStyles()];
    shadow.replaceChildren(this.#root);
    this.pages = new Pages(lobby, this.pictures);
    this.#windows = new Windows(this.layer, {
      close: (handle) => this.#enter(() => exports.closeWindow(number, handle)),
      raise: (handle) => exports.raiseWindow(number, handle),
    });
    const { signal } = this.#stopped;
    new PointerTracker(this, signal);
    new KeyTracker(this, signal);
    new SplitterBars(this, signal);
    const options = { signal, capture: true, passive: true };
    this.layer.addEventListener('scroll', (event) => this.#scrolled(event), options);
    this.#watchResolution();
  }

  dispose() {
    this.#disposed = true;
    this.#stopped.abort();
    for (const timer of this.#timers.values()) clearInterval(timer);
    this.#timers.clear();
    this.#windows.dispose();
    this.#root.remove();
    this.pictures.dispose();
    this.#controls.clear();
    this.#frames.clear();
  }

  // What the component asks for.

  /**
   * @param {Int32Array} words
   * @param {Uint8Array} texts
   */
  present(words, texts) {
    applyChanges(words, texts, this);
  }

  /** @param {number} id @returns {any} */
  get(id) {
    return this.#controls.get(id);
  }

  /**
   * The number of a control by its element's id; 0 when there is none.
   * @param {string} elementId
   */
  controlNamed(elementId) {
    for (const [id, { element }] of this.#controls) {
      if (element.id === elementId) return id;
    }
    return 0;
  }

  /**
   * @param {number} id
   * @param {number} kind
   * @param {number} container
   * @param {boolean} framed
   * @param {boolean} takesFocus
   * @param {number} index
   * @param {string} name
   */
  create(id, kind, container, framed, takesFocus, index, name) {
    const { pictures } = this;
    const holder = this.#controls.get(container);
    const place = {
      id,
      name,
      index,
      container: holder,
      framed,
      takesFocus,
      pictures,
      pages: this.pages,
    };
    const control = new VIEW_OF_KIND[kind](place);
    if (control instanceof FormView) this.layer.append(control.element);
    if (control instanceof ScrollFrameView) this.#frames.add(control);
    this.#controls.set(id, control);
  }

  /** @param {number} id */
  remove(id) {
    const control = this.#controls.get(id);
    if (control instanceof ScrollFrameView) this.#frames.delete(control);
    control?.remove();
    this.#controls.delete(id);
  }

  /** @param {Int32Array} words */
  arrangeWindows(words) {
    if (this.#disposed) return;
    this.#windows.arrange(words, (id) => this.get(id));
  }

  /**
   * @param {number} pane
   * @param {string} html
   * @param {number} ticket
   */
  loadPage(pane, html, ticket) {
    this.pages.load(pane, html);
    if (this.#loaded.push(ticket) === 1) queueMicrotask(() => this.#tellLoaded());
  }

  /**
   * @param {number} timer
   * @param {number} milliseconds
   */
  startTimer(timer, milliseconds) {
    this.stopTimer(timer);
    const tick = () => this.#enter(() => this.#exports.timer(this.#number, timer));
    this.#timers.set(timer, setInterval(tick, milliseconds));
  }

  /** @param {number} timer */
  stopTimer(timer) {
    clearInterval(this.#timers.get(timer));
    this.#timers.delete(timer);
  }

  // What the candidate does.

  /**
   * @param {number} act of PointerAct
   * @param {number} control
   * @param {number} x CSS pixels of the layer
   * @param {number} y
   */
  pointer(act, control, x, y) {
    this.#exports.pointer(this.#number, act, control, x, y);
  }

  acted() {
    if (!this.#disposed) this.#acted(true);
  }

  /**
   * @param {number} control
   * @param {number} keyCode
   * @param {boolean} alt
   */
  key(control, keyCode, alt) {
    this.readScrolling();
    this.#enter(() => this.#exports.key(this.#number, control, keyCode, alt));
  }

  /** @param {number} control */
  focus(control) {
    this.#exports.focus(this.#number, control);
  }

  /**
   * @param {number} pane
   * @param {string} type
   * @param {string} element
   * @param {boolean} alt
   * @param {number} keyCode
   */
  pageEvent(pane, type, element, alt, keyCode) {
    const flags = this.#exports.pageEvent(this.#number, pane, type, element, alt, keyCode);
    this.acted();
    return flags;
  }

  /**
   * @param {number} splitter
   * @param {number} bar
   * @param {number} pixels
   */
  dragBar(splitter, bar, pixels) {
    this.#enter(() => this.#exports.dragBar(this.#number, splitter, bar, pixels));
  }

  /** Tells the component how far everything is scrolled now. */
  readScrolling() {
    for (const frame of this.#frames) this.#readFrame(frame);
  }

  /** @param {ScrollFrameView} frame */
  #readFrame(frame) {
    if (!frame.readOffsets()) return false;
    this.#exports.scroll(this.#number, frame.id, frame.x, frame.y);
    return true;
  }

  /** @param {Event} event */
  #scrolled(event) {
    for (const frame of this.#frames) {
      if (frame.scroller === event.target && this.#readFrame(frame)) this.acted();
    }
    const pane = this.#paneOf(event.target);
    if (pane) this.pageEvent(pane, 'scroll', '', false, 0);
  }

  /** @param {EventTarget | null} target */
  #paneOf(target) {
    for (const [id, control] of this.#controls) {
      if (control.element === target) return id;
    }
    return 0;
  }

  #tellLoaded() {
    const tickets = this.#loaded;
    this.#loaded = [];
    for (const ticket of tickets) {
      if (!this.#disposed) this.#exports.pageLoaded(this.#number, ticket);
    }
    if (!this.#disposed) this.#acted(false);
  }

  // Drawings are made for one resolution, which changes with the page's zoom and the screen.
  #watchResolution() {
    if (this.#disposed) return;
    const media = matchMedia(`(resolution: ${devicePixelRatio}dppx)`);
    const redraw = () => {
      for (const control of this.#controls.values()) {
        if (control instanceof PictureBoxView) control.surface.redraw();
      }
      this.#watchResolution();
    };
    media.addEventListener('change', redraw, { once: true, signal: this.#stopped.signal });
  }

  /** @param {() => void} act */
  #enter(act) {
    if (this.#disposed) return;
    act();
    this.acted();
  }
}
