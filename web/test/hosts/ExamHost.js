/**
 * The host of one item, as an exam's page could be written: plain objects, and the members of the
 * element. It keeps what it was told in the form of a transcript's events. Sizes are pixels.
 */

const TWIPS_PER_PIXEL = 15;
const KEY = 0;
const RESPONSES = 1;
const OK = 1;

/** @param {string} text @returns {Uint8Array} UTF-16LE */
function toBytes(text) {
  return new Uint8Array(Uint16Array.from(text, (unit) => unit.charCodeAt(0)).buffer);
}

/** @param {Uint8Array} bytes UTF-16LE */
const toText = (bytes) => new TextDecoder('utf-16le').decode(bytes);

export class ExamHost {
  static toBytes = toBytes;
  static toText = toText;
  /** Answers to the next questions; OK when there is none. */
  answers = [];
  #events = [];
  #element;
  #size = [1024, 768];

  /** @param {HTMLElement} element an unused one, that the host puts into its page */
  constructor(element = document.createElement('zav-drag-drop')) {
    this.#element = element;
    document.body.append(element);
    element.addEventListener('zav-message-answered', ({ detail }) => this.note('message', detail));
    element.addEventListener('zav-error-logged', ({ detail }) => this.note('log', detail));
    element.addEventListener('zav-responses-changed', ({ detail }) => this.note('heard', detail));
  }

  get element() {
    return this.#element;
  }

  /** @param {string} event @param {object} told */
  note(event, told) {
    this.#events.push({ event, ...told });
  }

  /** What was noted since the last call, then the responses. */
  takeEvents() {
    return [
      ...this.#events.splice(0),
      { event: 'responses', responses: [...this.#element.responses] },
    ];
  }

  /** Answers messages itself, instead of having the element ask. */
  answerMessages() {
    const ShowMessage = (_text, style) => (style % 16 ? this.answers.shift() : OK) ?? OK;
    this.#element.parent = { ...this.#element.parent, ShowMessage };
  }

  /** The element is its own host. @param {string} folder @param {string} options words */
  async showFolder(folder, options) {
    this.#element.setAttribute('options', options);
    this.#element.setAttribute('src', folder);
    await this.#element.ready;
  }

  /** @param {string} folder @param {number} options */
  async initialise(folder, options) {
    this.#element.ExternalSupport = {
      GetLocalizePath: (name) => folder + name,
      GetGraphicsPath: (name) => `${folder}graphics/${name}`,
      GetSupportFileDir: () => '/support/',
    };
    const item = toBytes(await (await fetch(`${folder}item.xml`)).text());
    this.#report(await this.#element.InitExternalDisplay(item, item.length, options));
  }

  show() {
    this.#report(this.#element.ShowExternalDisplay(0, 0, ...this.#twips()));
  }

  /** @param {number} width @param {number} height */
  resize(width, height) {
    this.#size = [width, height];
    this.#box();
    this.#report(this.#element.ResizeExternalDisplay(0, 0, ...this.#twips()));
  }

  /** The element follows its box. @param {number} width @param {number} height */
  resizeBox(width, height) {
    this.#size = [width, height];
    this.#box();
  }

  hide() {
    this.#report(this.#element.HideExternalDisplay());
  }

  status() {
    const { lDispState, bViewedAll, sStateMsg } = this.#element.GetExternalDisplayStatus();
    this.note('status', { state: lDispState, viewedAll: bViewedAll, message: sStateMsg });
  }

  state() {
    const size = this.#element.GetExternalStateBytes();
    return size > 0 ? toText(this.#element.GetExternalStateArray(size).arState) : '';
  }

  /** @param {string} text */
  setState(text) {
    const bytes = toBytes(text);
    this.#element.SetExternalStateArray(bytes, bytes.length);
  }

  responses() {
    this.note('record', { text: this.#record(RESPONSES) });
  }

  key() {
    this.note('key', { text: this.#record(KEY) });
  }

  score() {
    this.#noteScore(this.#element.ScoreExternalDisplay());
  }

  /** @param {string} record */
  rescore(record) {
    const bytes = toBytes(record);
    this.#noteScore(this.#element.RescoreExternalDisplay(bytes, bytes.length));
  }

  #noteScore({ fRawScore, nCorrect, nIncorrect, nNotAttempted, nNotScored }) {
    const { fMaxScore, fMinScore } = this.#element.GetScoreInfo();
    this.note('score', {
      raw: fRawScore,
      max: fMaxScore,
      min: fMinScore,
      correct: nCorrect,
      incorrect: nIncorrect,
      notAttempted: nNotAttempted,
      notScored: nNotScored,
    });
  }

  #record(type) {
    const { result: size } = this.#element.GetResponseBytes(type);
    return size > 0 ? toText(this.#element.GetResponse(type, size).arResponse) : '';
  }

  #box() {
    const [width, height] = this.#size;
    Object.assign(this.#element.style, { width: `${width}px`, height: `${height}px` });
  }

  #twips() {
    return this.#size.map((pixels) => pixels * TWIPS_PER_PIXEL);
  }

  #report(accepted) {
    if (!accepted) this.note('refused', {});
  }
}
