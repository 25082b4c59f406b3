/**
 * The page: a bar with choices, the item, and beside it what the host sees. The address says what is
 * chosen; whatever is chosen in the bar goes there first and comes back from it.
 */
import { readChoice, writeChoice } from './choice.js';
import { byId } from './dom.js';
import { HostView } from './HostView.js';
import { recallOpen, rememberOpen } from './memory.js';

/** @typedef {import('../src/zav-drag-drop.js').ZavDragDropElement} ZavDragDropElement */
/** @typedef {{name: string, title: string, languages: string[]}} ServedItem */

const NARROW = matchMedia('(max-width: 900px)');

const bar = byId('choice', HTMLFormElement);
const itemPicker = byId('item', HTMLSelectElement);
const languagePicker = byId('language', HTMLSelectElement);
const sizePicker = byId('size', HTMLSelectElement);
const element = /** @type {ZavDragDropElement} */ (byId('element', HTMLElement));
/** @type {ServedItem[]} */
let items = [];
/** @type {HostView} */
let hostView;

/** @param {string} problem '' for none */
function tell(problem) {
  const line = byId('problem', HTMLElement);
  line.textContent = problem;
  line.hidden = !problem;
}

async function start() {
  keepFolds();
  if (!customElements.get('zav-drag-drop')) {
    return tell('The web package could not be loaded. tools/build-web builds it.');
  }
  hostView = new HostView(element);
  const answer = await fetch('/items/');
  items = await answer.json();
  itemPicker.replaceChildren(...items.map(({ name, title }) => new Option(title, name)));
  bar.addEventListener('change', () => (location.hash = writeChoice(chosen())));
  addEventListener('hashchange', show);
  // A page that is loaded anew asks for every file anew.
  byId('reload', HTMLButtonElement).addEventListener('click', () => location.reload());
  show();
}

/** What the bar says. */
function chosen() {
  return {
    item: itemPicker.value,
    language: languagePicker.value,
    options: new FormData(bar).getAll('options').map(String),
    size: sizePicker.value,
  };
}

/** Shows what the address says. */
function show() {
  const choice = readChoice(location.hash);
  const item = choice.item ? items.find(({ name }) => name === choice.item) : items[0];
  if (!item) return tell(`No item named "${choice.item}" is served here.`);
  document.title = `${item.title} · ZavDragDrop`;
  itemPicker.value = item.name;
  offerLanguages(item, choice.language);
  sizePicker.value = choice.size;
  byId('stage', HTMLElement).dataset.size = choice.size;
  for (const box of bar.querySelectorAll('input')) box.checked = choice.options.includes(box.value);
  const attributes = {
    src: `/items/${encodeURIComponent(item.name)}/`,
    language: languagePicker.value,
    options: choice.options.join(' '),
  };
  if (setAttributes(attributes)) showHostView();
}

/** @param {ServedItem} item @param {string} language */
function offerLanguages(item, language) {
  const names = new Intl.DisplayNames(['en'], { type: 'language', fallback: 'code' });
  const [own = ''] = item.languages;
  const options = item.languages.map((id) => new Option(nameOf(names, id), id === own ? '' : id));
  languagePicker.replaceChildren(...(options.length ? options : [new Option('As written', '')]));
  languagePicker.value = item.languages.includes(language) && language !== own ? language : '';
}

/** @param {Intl.DisplayNames} names @param {string} id */
function nameOf(names, id) {
  try {
    return names.of(id) ?? id;
  } catch {
    return id; // the texts may have any name
  }
}

/**
 * Whether one of them is new.
 * @param {Record<string, string>} attributes
 */
function setAttributes(attributes) {
  const changed = Object.entries(attributes).filter(
    ([name, value]) => (element.getAttribute(name) ?? '') !== value,
  );
  for (const [name, value] of changed) element.setAttribute(name, value);
  return changed.length > 0;
}

/** Shows what the host sees when the item is there. */
async function showHostView() {
  tell('');
  hostView.clear();
  const { ready } = element;
  try {
    await ready;
    // An item without a state was not taken; the log says why.
    if (ready === element.ready && element.state) hostView.refresh();
  } catch (error) {
    if (ready === element.ready) tell(/** @type {Error} */ (error).message);
  }
}

/** Whatever can be folded stays as it was left. */
function keepFolds() {
  const fold = byId('fold', HTMLButtonElement);
  const view = byId('host-view', HTMLElement);
  /** @param {boolean} isOpen */
  const open = (isOpen) => {
    view.hidden = !isOpen;
    fold.setAttribute('aria-expanded', String(isOpen));
  };
  open(recallOpen('host-view', true));
  fold.addEventListener('click', () => {
    const isOpen = view.hidden !== false;
    open(isOpen);
    rememberOpen('host-view', isOpen);
    if (isOpen && NARROW.matches) view.scrollIntoView();
  });
  for (const section of view.querySelectorAll('details')) {
    section.open = recallOpen(section.id, section.open);
    section.addEventListener('toggle', () => rememberOpen(section.id, section.open));
  }
}

start().catch((error) => tell(error.message));
