import { byId, make } from './dom.js';

/** A list of things that happened, the last one first; the same again only counts up. */
export class Entries {
  #list;
  #count;
  #none;
  #total = 0;
  #last = { key: '', times: 0 };

  /**
   * @param {string} listId
   * @param {string} countId
   * @param {string} none what stands in an empty list
   */
  constructor(listId, countId, none) {
    this.#list = byId(listId, HTMLOListElement);
    this.#count = byId(countId, HTMLElement);
    this.#none = none;
    this.clear();
  }

  clear() {
    this.#total = 0;
    this.#last = { key: '', times: 0 };
    this.#count.textContent = '';
    this.#list.replaceChildren(make('li', 'quiet', this.#none));
  }

  /** @param {string} text @param {string} origin */
  add(text, origin) {
    const key = `${origin}\n${text}`;
    const isSame = key === this.#last.key;
    this.#last = { key, times: isSame ? this.#last.times + 1 : 1 };
    if (isSame || this.#total === 0) this.#list.firstElementChild?.remove();
    const times = isSame ? ` · ${this.#last.times} times` : '';
    this.#list.prepend(make('li', '', make('p', '', text), make('p', 'quiet', origin + times)));
    this.#total++;
    this.#count.textContent = String(this.#total);
  }
}
