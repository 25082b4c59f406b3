/**
 * A page as the host of an item: it brings host objects and a scoring engine of its own, shows what
 * was answered, keeps the state for the next visit, and scores the item when it is handed in.
 */
import '/package/zav-drag-drop.js';

const FOLDER = '/items/heart/';
const STORED = 'example.state';
const TWIPS_PER_PIXEL = 15;
const RESPONSES = 1;
const NO_RESPONSE = 2;
const OK = 1;
const OK_CANCEL = 1;
const ERROR = 16;

const $ = (id) => document.getElementById(id);
const element = document.querySelector('zav-drag-drop');

// [support]
element.support = {
  GetLocalizePath: (name) => FOLDER + name,
  GetGraphicsPath: (name) => `${FOLDER}graphics/${name}`,
  GetSupportFileDir: () => 'support:/', // only a name: nothing is fetched from there
};
// [/support]

// [parent]
element.parent = {
  LogError(number, description, source, extra, routine) {
    $('trouble').textContent = `${routine}: ${description} (${number})`;
  },
  // An answer at once, or a promise of one.
  ShowMessage: (text, style, title) => (style === ERROR ? OK : ask(text, style, title)),
};

function ask(text, style, title) {
  const dialog = $('message');
  $('message-title').textContent = title;
  $('message-text').textContent = text;
  $('cancel').hidden = style !== OK_CANCEL;
  dialog.returnValue = '2'; // what closing it with Escape means
  dialog.showModal();
  return new Promise((resolve) => {
    dialog.addEventListener('close', () => resolve(Number(dialog.returnValue)), { once: true });
  });
}
// [/parent]

// [engine]
/** Half a point for each right response, a quarter less for each wrong one. */
class PartialCredit {
  Document; // the members of DataIO, by name

  CalculateScore() {
    const key = new Set(this.#texts('Answers'));
    const worth = (response) => (key.has(response) ? 0.5 : -0.25);
    return this.#texts('Responses').reduce((sum, response) => sum + worth(response), 0);
  }

  MaxScore() {
    return this.#texts('Answers').length * 0.5;
  }

  MinScore() {
    return this.#texts('Answers').length * -0.25;
  }

  #texts(name) {
    if (!this.Document.FindNode(name)) return [];
    const count = this.Document.ChildCount();
    return Array.from({ length: count }, (_, i) => this.Document.GetChildText(i));
  }
}

element.registerClass('ZavScoring.ScoreEngine', () => new PartialCredit());
// [/engine]

// [arrays]
/** Text as the members take it: UTF-16LE. */
function toBytes(text) {
  const bytes = new Uint8Array(text.length * 2);
  const view = new DataView(bytes.buffer);
  for (let i = 0; i < text.length; i++) view.setUint16(i * 2, text.charCodeAt(i), true);
  return bytes;
}

/** An array may be longer than the text in it. */
const toText = (bytes) => new TextDecoder('utf-16le').decode(bytes).replace(/\0+$/, '');
// [/arrays]

// [load]
async function load() {
  const item = toBytes(await (await fetch(`${FOLDER}item.xml`)).text());
  if (!(await element.InitExternalDisplay(item, item.length, 0))) return;
  const state = toBytes(sessionStorage.getItem(STORED) ?? '');
  if (state.length) element.SetExternalStateArray(state, state.length);
  element.ShowExternalDisplay(0, 0, ...sizeInTwips());
  sizes.observe(element);
  showResponses();
  $('hand-in').disabled = false;
}

const sizes = new ResizeObserver(() => element.ResizeExternalDisplay(0, 0, ...sizeInTwips()));
const sizeInTwips = () =>
  [element.clientWidth, element.clientHeight].map((pixels) => pixels * TWIPS_PER_PIXEL);
// [/load]

// [events]
element.addEventListener('zav-state-changed', ({ detail }) => {
  sessionStorage.setItem(STORED, detail.state);
});
element.addEventListener('zav-responses-changed', showResponses);
// [/events]

function showResponses() {
  const entries = element.responses.map((response) => {
    const entry = document.createElement('li');
    entry.textContent = response;
    return entry;
  });
  $('responses').replaceChildren(...entries);
}

// [hand-in]
async function handIn() {
  const { lDispState } = element.GetExternalDisplayStatus();
  const isEmpty = lDispState === NO_RESPONSE;
  if (isEmpty && (await ask('Hand in without an answer?', OK_CANCEL, document.title)) !== OK)
    return;
  const { result: size } = element.GetResponseBytes(RESPONSES);
  const { arResponse } = element.GetResponse(RESPONSES, size);
  const { fRawScore } = element.ScoreExternalDisplay();
  const { fMaxScore } = element.GetScoreInfo();
  $('result').textContent = `${fRawScore} of ${fMaxScore} points for ${toText(arResponse)}`;
  sizes.disconnect();
  element.dispose(); // frees the item, and all that the element took for it
  element.hidden = true;
  sessionStorage.removeItem(STORED);
  $('hand-in').disabled = true;
}
// [/hand-in]

$('hand-in').addEventListener('click', handIn);
await load();
