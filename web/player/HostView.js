import { byId, make } from './dom.js';
import { Entries } from './Entries.js';
import { prettyXml } from './xml.js';

/** @typedef {import('../src/zav-drag-drop.js').ZavDragDropElement} ZavDragDropElement */
/** @typedef {import('../src/zav-drag-drop.js').Score} Score */

const KEY = 0;
const RESPONSES = 1;

/** @typedef {{text: string, look: string}} Badge */
const NO_RESPONSE = 2;
/** @type {Record<number, Badge>} */
const STATUS = {
  [NO_RESPONSE]: { text: 'Not answered', look: '' },
  3: { text: 'Partly answered', look: 'partly' },
  100: { text: 'Answered', look: 'good' },
};
const BEGUN = { text: 'Begun', look: 'partly' };
const ALL_SEEN = { text: 'All seen', look: 'good' };
const NOT_ALL_SEEN = { text: 'Not all seen', look: '' };

/** @param {string} text UTF-16LE, as the item interface takes it */
function toBytes(text) {
  const bytes = new DataView(new ArrayBuffer(text.length * 2));
  for (let i = 0; i < text.length; i++) bytes.setUint16(i * 2, text.charCodeAt(i), true);
  return new Uint8Array(bytes.buffer);
}

/** @param {Uint8Array} bytes */
function toText(bytes) {
  return new TextDecoder('utf-16le').decode(bytes);
}

/** @param {ZavDragDropElement} element @param {number} kind */
function readRecord(element, kind) {
  const { result: size } = element.GetResponseBytes(kind);
  return size > 0 ? toText(element.GetResponse(kind, size).arResponse) : '';
}

/** What a host sees of an item: shown anew after each change, and on demand. */
export class HostView {
  #element;
  #messages = new Entries('messages', 'message-count', 'No messages.');
  #log = new Entries('log', 'log-count', 'Nothing was logged.');
  #isLive = byId('live', HTMLInputElement);
  /** What is shown, without the blanks that make it readable. */
  #texts = new Map();
  /** @type {ReturnType<typeof setTimeout> | undefined} */
  #pending;

  /** @param {ZavDragDropElement} element */
  constructor(element) {
    this.#element = element;
    for (const type of ['zav-responses-changed', 'zav-state-changed', 'zav-viewed-all']) {
      element.addEventListener(type, () => this.#refreshSoon());
    }
    element.addEventListener('zav-message-answered', ({ detail }) => {
      this.#messages.add(detail.text, `${detail.title} · ${detail.answer === 2 ? 'Cancel' : 'OK'}`);
    });
    element.addEventListener('zav-error-logged', ({ detail }) => {
      const line = detail.line ? `line ${detail.line}` : '';
      const origin = [detail.routine, detail.number, detail.source, detail.extra, line];
      this.#log.add(detail.description, origin.filter(Boolean).join(' · '));
    });
    this.#listen();
  }

  /** For an item that is about to be loaded. */
  clear() {
    this.#messages.clear();
    this.#log.clear();
    this.#showScore(undefined);
    for (const id of ['state', 'key-record', 'response-record']) this.#showXml(id, '');
    for (const id of ['status', 'viewed', 'status-message', 'rescored']) write(id, '');
    this.#showResponses([]);
  }

  refresh() {
    clearTimeout(this.#pending);
    this.#pending = undefined;
    this.#attempt(() => this.#showResponses(this.#element.responses));
    this.#attempt(() => this.#showStatus());
    this.#attempt(() => this.#showXml('state', this.#element.state));
    this.#attempt(() => this.#showXml('key-record', readRecord(this.#element, KEY)));
    this.#attempt(() => this.#showXml('response-record', readRecord(this.#element, RESPONSES)));
    if (this.#isLive.checked) this.#score();
  }

  /** Not within the event: the item is busy until it has told everybody. */
  #refreshSoon() {
    this.#pending ??= setTimeout(() => this.refresh());
  }

  #listen() {
    byId('ask', HTMLButtonElement).addEventListener('click', () => {
      this.#attempt(() => this.#askForStatus());
    });
    byId('score', HTMLButtonElement).addEventListener('click', () => this.#score());
    this.#isLive.addEventListener('change', () => this.refresh());
    onSubmit('put-back', () => this.#putBack(byId('state-text', HTMLTextAreaElement).value));
    onSubmit('rescore', () => this.#rescore(byId('record-text', HTMLTextAreaElement).value));
    for (const button of document.querySelectorAll('[data-copy]')) {
      button.addEventListener('click', () => this.#copy(/** @type {HTMLElement} */ (button)));
    }
  }

  /** @param {() => void} action a call of the host's that may fail as a whole */
  #attempt(action) {
    try {
      action();
    } catch (error) {
      const { message, number, source } =
        /** @type {import('../src/zav-drag-drop.js').AutomationError} */ (error);
      this.#log.add(message, ['failed call', number, source].filter(Boolean).join(' · '));
    }
  }

  /** @param {string[]} responses */
  #showResponses(responses) {
    const chips = responses.map((response) => make('li', 'chip', response));
    const none = make('li', 'quiet', 'None yet');
    byId('responses', HTMLUListElement).replaceChildren(...(chips.length ? chips : [none]));
  }

  /** @param {string} id @param {string} xml */
  #showXml(id, xml) {
    this.#texts.set(id, xml);
    write(id, prettyXml(xml));
  }

  /**
   * A host that asks for the status of an item that was not seen to its end has it tell the candidate
   * to scroll. So this asks of itself only where nobody would be told.
   */
  #showStatus() {
    if (this.#element.viewedAll) return this.#askForStatus();
    const isBegun = this.#element.responses.length > 0;
    showBadge('status', isBegun ? BEGUN : STATUS[NO_RESPONSE]);
    showBadge('viewed', NOT_ALL_SEEN);
    write('status-message', '');
  }

  #askForStatus() {
    const { lDispState, bViewedAll, sStateMsg } = this.#element.GetExternalDisplayStatus();
    showBadge('status', STATUS[lDispState] ?? { text: `State ${lDispState}`, look: '' });
    showBadge('viewed', bViewedAll ? ALL_SEEN : NOT_ALL_SEEN);
    write('status-message', sStateMsg);
  }

  #score() {
    this.#attempt(() => this.#showScore(this.#element.ScoreExternalDisplay()));
  }

  /** @param {Score | undefined} score */
  #showScore(score) {
    const info = score && this.#element.GetScoreInfo();
    write('raw', score ? number(score.fRawScore) : '–');
    const least = info?.fMinScore ? `, least ${number(info.fMinScore)}` : '';
    write('range', info ? ` of ${number(info.fMaxScore)}${least}` : '');
    byId('counts', HTMLDListElement).replaceChildren(...counts(score));
  }

  /** @param {string} state */
  #putBack(state) {
    this.#attempt(() => {
      this.#element.state = state;
    });
    this.refresh();
  }

  /** @param {string} record */
  #rescore(record) {
    write('rescored', '');
    this.#attempt(() => {
      const score = this.#element.RescoreExternalDisplay(toBytes(record));
      write('rescored', score.result ? `Worth ${number(score.fRawScore)}` : 'Was refused');
      if (score.result) this.#element.state = this.#element.state; // shows what it took over
    });
    this.refresh();
  }

  /** @param {HTMLElement} button */
  async #copy(button) {
    const { copy = '' } = button.dataset;
    try {
      await navigator.clipboard.writeText(this.#texts.get(copy) ?? '');
      button.textContent = 'Copied';
    } catch {
      getSelection()?.selectAllChildren(byId(copy, HTMLPreElement));
      button.textContent = 'Selected, press Ctrl+C';
    }
    setTimeout(() => (button.textContent = 'Copy'), 2000);
  }
}

/** @param {string} id @param {string} text */
function write(id, text) {
  const element = byId(id, HTMLElement);
  element.textContent = text;
  return element;
}

/** @param {string} id @param {Badge} badge */
function showBadge(id, { text, look }) {
  write(id, text).className = `badge ${look}`;
}

/** @param {string} id @param {() => void} action */
function onSubmit(id, action) {
  byId(id, HTMLFormElement).addEventListener('submit', (event) => {
    event.preventDefault();
    action();
  });
}

/** @param {number} value a single, whose digits beyond the seventh say nothing */
function number(value) {
  return String(Number(value.toPrecision(7)));
}

/** @param {Score | undefined} score */
function counts(score) {
  const rows = [
    ['Correct', score?.nCorrect],
    ['Incorrect', score?.nIncorrect],
    ['Not attempted', score?.nNotAttempted],
    ['Not scored', score?.nNotScored],
  ];
  return rows.map(([name, count]) =>
    make('div', '', make('dt', '', `${name}`), make('dd', '', `${count ?? '–'}`)),
  );
}
