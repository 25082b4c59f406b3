import { Component } from './Component.js';
import { rootStyles } from './dom/styles.js';
import { ParentObject } from './HostObjects.js';
import { FolderSupport } from './host/FolderSupport.js';
import { bringFiles } from './host/ItemFiles.js';
import { responsesIn, sawAll, wholeState } from './host/ItemState.js';
import { decodeFile, otherThanXml, toBytes, toText, withLanguage } from './host/ItemXml.js';
import { Runtime } from './runtime/Runtime.js';
import { warmUp } from './warmUp.js';

const TWIPS_PER_PIXEL = 15;
const WASM = new URL('./zav-drag-drop.wasm', import.meta.url);
const ARTWORK = new URL('./artwork/', import.meta.url);
/** @type {Record<string, number>} */
const OPTION_WORDS = { 'read-only': 0x1, 'show-answers': 0x10, calculator: 0x100 };
const COUNTS = ['nCorrect', 'nIncorrect', 'nNotAttempted', 'nNotScored', 'fRawScore'];
const NO_COUNTS = [0, 0, 0, 0, 0];

/** @type {Promise<void> | undefined} */
let prepared;

/**
 * What the options of an element say, as the component takes them.
 * @param {string | null} text a number, or words
 */
function readOptions(text) {
  const number = Number(text);
  if (Number.isInteger(number)) return number;
  const words = (text ?? '').split(/\s+/).filter(Boolean);
  return words.reduce((options, word) => options | (OPTION_WORDS[word.toLowerCase()] ?? 0), 0);
}

/**
 * The url that a host's object gives. One that fails does so again, and is reported, when the
 * component asks.
 * @param {() => string | undefined} ask
 */
function urlOf(ask) {
  try {
    return ask() ?? '';
  } catch {
    return '';
  }
}

/**
 * An object of by-reference results by their names.
 * @param {string[]} names
 * @param {unknown[]} values
 * @returns {any}
 */
const named = (names, values) => Object.fromEntries(names.map((name, i) => [name, values[i]]));

/**
 * A drag-and-drop exam item.
 *
 * With `src` the element is its own host: it fetches the item folder, initialises and shows the item
 * and follows its own size. Without it the page drives the item through the 18 members of
 * `DisplayInt`, in the order ExternalSupport, SetParentWnd, InitExternalDisplay, ShowExternalDisplay;
 * then any mixture of the others; at the end FreeExternalDisplay. Places and sizes are twips, 15 to a
 * pixel; byte arrays hold UTF-16LE text. What a member gives back by reference comes as one object.
 * A member that fails as a whole throws an Error with `number` and `source`.
 *
 * The item shows in the element's box, which is useful from 533 by 300 pixels. Styles of the page do
 * not reach in. The element has to be connected before the item is initialised.
 *
 * @attr src - url of an item folder: item.xml, KVStatic.xml and graphics/
 * @attr language - shows the item in this language, instead of its own
 * @attr options - words of "read-only", "show-answers", "calculator", or the sum of their numbers
 *   1, 16 and 256
 *
 * @fires zav-responses-changed - the candidate placed, moved or removed something: {responses}
 * @fires zav-state-changed - the candidate did something that the state keeps: {state}
 * @fires zav-viewed-all - the candidate has seen the whole item
 * @fires zav-error-logged - {number, description, source, extra, routine, line}
 * @fires zav-message-answered - {text, style, title, answer}; answer 1 is OK, 2 Cancel
 */
export class ZavDragDropElement extends HTMLElement {
  static observedAttributes = ['src', 'language', 'options'];

  /**
   * Loads the module. When the page has nothing else to do after that, and until there is an item, the
   * module's code is run, so that the first item comes up as fast as any other. For a host that has
   * time before it shows one; nobody has to call it.
   */
  static prepare() {
    prepared ??= Runtime.load(WASM).then((runtime) => {
      warmUp(runtime, ARTWORK).catch(() => {}); // what fails here fails for an item, which says so
    });
    prepared.catch(() => (prepared = undefined));
    return prepared;
  }

  /**
   * The page's own parent object; every member may be left out. What LogError is told comes as an
   * event too; without ShowMessage the element shows messages itself.
   * @type {import('./zav-drag-drop.js').Parent | undefined}
   */
  parent;

  /** @type {import('./zav-drag-drop.js').Support | undefined} */
  #support;
  /** @type {Map<string, () => object>} */
  #classes = new Map();
  /** @type {Component | undefined} */
  #component;
  #parentObject;
  /** @type {number | undefined} */
  #parentWindow;
  /** Counts initialisations, so that one that was overtaken ends. */
  #turn = 0;
  #state = '';
  /** Whether the host put another state while the component called it, which sees to it afterwards. */
  #isStatePut = false;
  /** Whether the host freed the item: there is nothing to ask it any more. */
  #isFreed = false;
  /** @type {Promise<void>} */
  #ready = Promise.resolve();
  #reloading = false;
  #follows = false;
  #sizes = new ResizeObserver(() => this.#followSize());

  constructor() {
    super();
    this.attachShadow({ mode: 'open' });
    this.#parentObject = new ParentObject(
      () => this.parent,
      (name) => this.#support?.GetGraphicsPath(name) ?? '',
      () => this.#component?.view.dialogs,
      {
        logged: (entry) => this.#tell('zav-error-logged', entry),
        answered: (message) => {
          this.#observe(true);
          this.#tell('zav-message-answered', message);
        },
      },
    );
  }

  connectedCallback() {
    this.#sizes.observe(this);
    if (this.hasAttribute('src') && !this.#component) this.#reload();
  }

  disconnectedCallback() {
    // An element that is only moved is connected again at once, and keeps its item.
    queueMicrotask(() => {
      if (!this.isConnected) this.dispose();
    });
  }

  attributeChangedCallback() {
    if (!this.hasAttribute('src')) return;
    if (this.isConnected) this.#reload();
    else this.dispose(); // loaded when it is connected
  }

  /** The item of `src` is loaded and shown; rejected when it could not be had. */
  get ready() {
    return this.#ready;
  }

  /** Names files by urls; with `src` the folder does. */
  get support() {
    return this.#support;
  }
  set support(support) {
    this.ExternalSupport = support;
  }

  /**
   * Makes the class known that the component creates under a ProgID: a scoring engine
   * ("ZavScoring.ScoreEngine") or a case study ("ZavCaseStudy.clsCaseStudy"). Counts from the next
   * initialisation. Where none is registered, the built-in ones serve.
   * @param {string} progId
   * @param {() => object} create
   */
  registerClass(progId, create) {
    this.#classes.set(progId, create);
  }

  /** The window that the element stands for: what SetParentWnd takes. 0 before initialisation. */
  get hostWindow() {
    return this.#component?.hostWindow ?? 0;
  }

  /** The responses in the state, such as A3. */
  get responses() {
    return responsesIn(this.state);
  }

  /** Whether the candidate has seen the whole item; unlike the status it asks nobody to scroll. */
  get viewedAll() {
    return sawAll(this.state);
  }

  /**
   * The state snapshot as text. Storing one shows what it says; '' is one without responses. What is no
   * state throws an Error that says so, and the item keeps the state that it has.
   */
  get state() {
    return this.#component ? this.#readState() : '';
  }
  set state(state) {
    const bytes = toBytes(wholeState(String(state)));
    this.SetExternalStateArray(bytes, bytes.length);
    if (this.#follows) this.#show('ResizeExternalDisplay');
  }

  /** Frees the item and everything that it took. The element can be used again. */
  dispose() {
    this.#turn++;
    this.#follows = false;
    this.#component?.dispose();
    this.#component = undefined;
    this.#state = '';
    this.#isStatePut = false;
    this.#isFreed = false;
    this.#sizes.disconnect();
  }

  // The item interface.

  /** @param {import('./zav-drag-drop.js').Support | undefined} support */
  set ExternalSupport(support) {
    this.#support = support;
    this.#component?.put('DisplayInt_ExternalSupport', support ?? null);
  }

  hwnd() {
    return this.#component ? this.#call('hwnd').result : 0;
  }

  /** @param {number} hParentWnd */
  SetParentWnd(hParentWnd) {
    this.#parentWindow = hParentWnd;
    return this.#component ? this.#call('SetParentWnd', hParentWnd).result : hParentWnd;
  }

  /**
   * Fetches what the item names, then initialises it. False as well when another initialisation or
   * dispose() came in between.
   * @param {Uint8Array} arInit
   * @param {number} [lInitBytes]
   * @param {number} [lOptions]
   * @returns {Promise<boolean>}
   */
  async InitExternalDisplay(arInit, lInitBytes = arInit.length, lOptions = 0) {
    const turn = ++this.#turn;
    this.#component?.dispose();
    this.#component = undefined;
    this.#isFreed = false;
    this.#sizes.observe(this);
    const [runtime, brought] = await Promise.all([
      Runtime.load(WASM),
      bringFiles(toText(arInit), this.#fileNames()),
    ]);
    if (turn !== this.#turn) return false;
    const component = new Component(
      runtime,
      /** @type {ShadowRoot} */ (this.shadowRoot),
      ARTWORK,
      (byCandidate) => this.#observe(byCandidate),
    );
    this.#component = component;
    for (const [url, bytes] of brought.files) component.addFile(url, bytes);
    for (const [url, image] of brought.pictures) component.addPicture(url, image);
    for (const [progId, create] of this.#classes) component.registerClass(progId, create);
    // The host is called here, and may call back.
    component.put('mExtParent', this.#parentObject);
    component.put('DisplayInt_ExternalSupport', this.#support ?? null);
    if (turn !== this.#turn) return false;
    component.call('DisplayInt_SetParentWnd', [this.#parentWindow ?? component.hostWindow]);
    const { result } = component.call('DisplayInt_InitExternalDisplay', [
      arInit,
      lInitBytes,
      lOptions,
    ]);
    if (turn !== this.#turn) return false;
    this.#observe(false);
    return result;
  }

  /** @param {number} lLeft @param {number} lTop @param {number} lWidth @param {number} lHeight */
  ShowExternalDisplay(lLeft, lTop, lWidth, lHeight) {
    return this.#change('ShowExternalDisplay', lLeft, lTop, lWidth, lHeight).result;
  }

  /** @param {number} lLeft @param {number} lTop @param {number} lWidth @param {number} lHeight */
  ResizeExternalDisplay(lLeft, lTop, lWidth, lHeight) {
    return this.#change('ResizeExternalDisplay', lLeft, lTop, lWidth, lHeight).result;
  }

  HideExternalDisplay() {
    return this.#change('HideExternalDisplay').result;
  }

  FreeExternalDisplay() {
    this.#follows = false;
    this.#isFreed = true;
    return this.#call('FreeExternalDisplay').result;
  }

  GetExternalDisplayStatus() {
    const { args } = this.#call('GetExternalDisplayStatus', 0, false, '');
    return named(['lDispState', 'bViewedAll', 'sStateMsg'], args);
  }

  GetExternalStateBytes() {
    return this.#call('GetExternalStateBytes').result;
  }

  /** @param {number} lBytes */
  GetExternalStateArray(lBytes) {
    const { args } = this.#call('GetExternalStateArray', new Uint8Array(lBytes), lBytes);
    return named(['arState'], args);
  }

  /**
   * @param {Uint8Array} arState
   * @param {number} [lBytes]
   */
  SetExternalStateArray(arState, lBytes = arState.length) {
    this.#change('SetExternalStateArray', arState, lBytes);
  }

  /** @param {number} lRespType 0 the key, 1 the responses */
  GetResponseBytes(lRespType) {
    const { result, args } = this.#call('GetResponseBytes', lRespType, false);
    return { result, bIsASCII: args[1] };
  }

  /**
   * @param {number} lRespType 0 the key, 1 the responses
   * @param {number} lBuffer
   */
  GetResponse(lRespType, lBuffer) {
    const { result, args } = this.#call('GetResponse', lRespType, new Uint8Array(lBuffer), lBuffer);
    return { result, arResponse: args[1] };
  }

  GetScoreInfo() {
    const { result, args } = this.#call('GetScoreInfo', 0, 0, 0);
    return { result, ...named(['nItems', 'fMaxScore', 'fMinScore'], args) };
  }

  ScoreExternalDisplay() {
    const { result, args } = this.#call('ScoreExternalDisplay', ...NO_COUNTS);
    return { result, ...named(COUNTS, args) };
  }

  /**
   * @param {Uint8Array} arResponse
   * @param {number} [lRespBytes]
   */
  RescoreExternalDisplay(arResponse, lRespBytes = arResponse.length) {
    const given = this.#change('RescoreExternalDisplay', arResponse, lRespBytes, ...NO_COUNTS);
    return { result: given.result, ...named(COUNTS, given.args.slice(2)) };
  }

  /**
   * @param {Uint8Array} arResponse
   * @param {number} [lRespBytes]
   */
  RescoreExternalDisplayQuick(arResponse, lRespBytes = arResponse.length) {
    const args = [arResponse, lRespBytes, ...NO_COUNTS, new Uint8Array(0), 0];
    const given = this.#change('RescoreExternalDisplayQuick', ...args);
    return { result: given.result, ...named(COUNTS, given.args.slice(2)) };
  }

  /**
   * @param {string} member
   * @param {unknown[]} args
   * @returns {{result: any, args: any[]}}
   */
  #call(member, ...args) {
    if (!this.#component) throw new Error(`${member}: the item is not initialised`);
    return this.#component.call(`DisplayInt_${member}`, args);
  }

  /**
   * A call that may change the state: the host knows that without being told. In the middle of another
   * call it is put off until that ends.
   * @param {string} member
   * @param {unknown[]} args
   */
  #change(member, ...args) {
    if (this.#component?.busy) {
      this.#isStatePut ||= member === 'SetExternalStateArray';
      return this.#call(member, ...args);
    }
    try {
      return this.#call(member, ...args);
    } finally {
      this.#observe(false);
    }
  }

  // Being one's own host.

  #reload() {
    if (this.#reloading) return;
    this.#reloading = true;
    this.#ready = Promise.resolve().then(() => {
      this.#reloading = false;
      return this.#loadFolder();
    });
    this.#ready.catch((error) => this.#showFailure(error));
  }

  // A message that the component shows says more.
  /** @param {Error} error */
  #showFailure(error) {
    console.error(`zav-drag-drop: ${error.message}`);
    if (this.#component) return;
    const notice = document.createElement('p');
    notice.className = 'notice';
    notice.role = 'alert';
    notice.textContent = `This question cannot be shown. ${error.message}`;
    const shadow = /** @type {ShadowRoot} */ (this.shadowRoot);
    shadow.adoptedStyleSheets = [rootStyles()];
    shadow.replaceChildren(notice);
  }

  async #loadFolder() {
    this.dispose();
    const turn = this.#turn;
    const support = new FolderSupport(new URL(this.getAttribute('src') ?? '', document.baseURI));
    this.#support = support;
    const loading = Runtime.load(WASM);
    loading.catch(() => {}); // told by whoever waits for it
    const answer = await fetch(support.itemUrl);
    if (!answer.ok) throw new Error(`${support.itemUrl}: expected an item, got ${answer.status}`);
    const xml = decodeFile(new Uint8Array(await answer.arrayBuffer()));
    if (turn !== this.#turn) return;
    const other = otherThanXml(xml);
    if (other) throw new Error(`${support.itemUrl}: expected an item, got ${other}`);
    const bytes = toBytes(this.#inLanguage(xml));
    const options = readOptions(this.getAttribute('options'));
    const initialised = await this.InitExternalDisplay(bytes, bytes.length, options);
    if (this.#turn !== turn + 1) return; // something else came in between
    if (!initialised) throw new Error(`${support.itemUrl}: the item could not be initialised`);
    this.#follows = true;
    this.#show('ShowExternalDisplay');
  }

  /** @param {string} xml */
  #inLanguage(xml) {
    const language = this.getAttribute('language');
    return language ? withLanguage(xml, language) : xml;
  }

  #followSize() {
    if (this.#follows && this.#component) this.#show('ResizeExternalDisplay');
  }

  /** @param {'ShowExternalDisplay' | 'ResizeExternalDisplay'} member */
  #show(member) {
    const { clientWidth, clientHeight } = this;
    if (!clientWidth || !clientHeight) return; // not laid out, or not shown: later
    this[member](0, 0, clientWidth * TWIPS_PER_PIXEL, clientHeight * TWIPS_PER_PIXEL);
  }

  /** @returns {import('./host/ItemFiles.js').FileNames} */
  #fileNames() {
    const support = this.#support;
    return {
      localizePath: (name) => urlOf(() => support?.GetLocalizePath(name)),
      graphicsPaths: (name) => [
        urlOf(() => support?.GetGraphicsPath(name)),
        urlOf(() => this.#parentObject.GetGraphicsPath(name)),
      ],
    };
  }

  // Telling what the candidate did.

  #readState() {
    const size = this.GetExternalStateBytes();
    return size > 0 ? toText(this.GetExternalStateArray(size).arState) : '';
  }

  /** @param {boolean} byCandidate */
  #observe(byCandidate) {
    if (!this.#component || this.#isFreed) return;
    const before = this.#state;
    const isTold = byCandidate && !this.#isStatePut;
    this.#isStatePut = false;
    this.#state = this.#readState();
    if (!isTold || this.#state === before) return;
    const responses = responsesIn(this.#state);
    if (responsesIn(before).join('\n') !== responses.join('\n')) {
      this.#tell('zav-responses-changed', { responses });
    }
    this.#tell('zav-state-changed', { state: this.#state });
    if (sawAll(this.#state) && !sawAll(before)) this.#tell('zav-viewed-all', {});
  }

  /**
   * @param {string} type
   * @param {object} detail
   */
  #tell(type, detail) {
    this.dispatchEvent(new CustomEvent(type, { bubbles: true, composed: true, detail }));
  }
}
