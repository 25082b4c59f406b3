/**
 * A candidate at an item in a page: mouse, wheel and keyboard, all of it input that the browser trusts.
 *
 * What is meant goes by the words of play scripts: "source 3" by its SourceID, "target 1" by its
 * TargetID or its letter, "source-area", "nowhere", or "120 80", CSS pixels from the element's corner.
 * What cannot be seen, or stays behind something else for seconds, fails.
 */

const MOVES_OF_A_HAND = 4;
const PATIENCE_MS = 5000;
/** @type {Record<string, string[]>} selectors, one for each shadow root on the way */
const PARTS = {
  'source-area': ['#scrSource'],
  title: ['#brwTitle'],
  footer: ['#brwButtons'],
  reset: ['#brwButtons', '#btnReset'],
  instructions: ['#brwButtons', '#btnInstructions'],
  calculator: ['#brwButtons', '#btnCalculator'],
  'set-answers': ['#brwButtons', '#btnSetAnswers'],
  'level bar': ['#spSplitter > .level.bar'],
  'upright bar': ['#spSplitter > .upright.bar'],
};
/** @type {Record<string, string>} what scrolls */
const SCROLLERS = {
  stem: '#txtItemStem',
  'source-area': '#scrSource > .scroller',
  'work-area': '#scrWork > .scroller',
};
/** @type {Record<string, string>} */
const KEYS = { Left: 'ArrowLeft', Right: 'ArrowRight', Up: 'ArrowUp', Down: 'ArrowDown' };

/**
 * @typedef {{x: number, y: number}} Place in CSS pixels of the viewport
 */

export class Candidate {
  #page;
  #element;
  #numbers;

  /**
   * @param {import('playwright-core').Page} page
   * @param {any} element a handle
   * @param {string} item the url of its item.xml
   */
  static async of(page, element, item) {
    return new Candidate(page, element, await page.evaluate(readNumbers, item));
  }

  /**
   * @param {import('playwright-core').Page} page
   * @param {any} element
   * @param {Record<string, Record<string, number>>} numbers
   */
  constructor(page, element, numbers) {
    this.#page = page;
    this.#element = element;
    this.#numbers = numbers;
  }

  /** @returns {Promise<string[]>} */
  responses() {
    return this.#element.evaluate((/** @type {any} */ element) => element.responses);
  }

  // The mouse.

  /** @param {string} from */
  drag(from) {
    return {
      /** @param {string} place */
      to: async (place) => {
        await this.press(from);
        await this.moveTo(place);
        await this.release();
      },
    };
  }

  /** @param {string} place */
  async press(place) {
    const { x, y } = await this.placeOf(place);
    await this.#page.mouse.move(x, y);
    await this.#page.mouse.down();
  }

  /**
   * @param {string} place
   * @param {number} [moves]
   * @returns {Promise<Place>}
   */
  async moveTo(place, moves = MOVES_OF_A_HAND) {
    const { x, y } = await this.placeOf(place, { mayBeCovered: true });
    await this.#page.mouse.move(x, y, { steps: moves });
    return { x, y };
  }

  async release() {
    await this.#page.mouse.up();
  }

  /** @param {string} place a place, or one of the footer's buttons */
  async click(place) {
    await this.press(place);
    await this.release();
  }

  /**
   * The middle of what is seen of something.
   * @param {string} place
   * @param {{mayBeCovered?: boolean}} [options]
   * @returns {Promise<Place>}
   */
  async placeOf(place, { mayBeCovered = false } = {}) {
    const [, left, top] = /^(-?\d+) (-?\d+)$/.exec(place) ?? [];
    if (left !== undefined) {
      const box = await this.#element.boundingBox();
      return { x: box.x + Number(left), y: box.y + Number(top) };
    }
    const path = this.#partOf(place);
    const end = Date.now() + PATIENCE_MS;
    for (;;) {
      const found = await this.#element.evaluate(locate, path);
      if (!found.inSight) throw new Error(`${place} is out of sight; scroll to it first`);
      if (found.inFront || mayBeCovered) return found;
      if (Date.now() > end) throw new Error(`${place} is covered by ${found.cover}`);
      await this.#page.waitForTimeout(20);
    }
  }

  /**
   * @param {string} place
   * @returns {string[]}
   */
  #partOf(place) {
    if (place === 'nowhere') return PARTS.title;
    if (PARTS[place]) return PARTS[place];
    const [kind, id] = place.split(' ');
    const number = this.#numbers[kind]?.[id];
    if (!number) throw new Error(`the item has no ${place}`);
    return [`#img${kind === 'source' ? 'Source' : 'Target'}Cover-${number}`];
  }

  // The keyboard.

  /** @param {string} place */
  async focus(place) {
    const [selector] = this.#partOf(place);
    await this.#element.evaluate(
      (/** @type {any} */ element, /** @type {string} */ part) =>
        element.shadowRoot.querySelector(part).focus({ preventScroll: true }),
      selector,
    );
  }

  /** @param {string} name as play scripts name keys */
  async key(name) {
    await this.#page.keyboard.press(KEYS[name] ?? name);
  }

  /** @param {string} target */
  async delete(target) {
    await this.focus(target);
    await this.key('Delete');
  }

  // Scrolling and sizing.

  /**
   * Turns the wheel until the area stands where it is to stand.
   * @param {string} area "stem", "source-area" or "work-area"
   * @param {number} down pixels
   * @param {number} across
   */
  async scroll(area, down, across = 0) {
    const by = { down, across, selector: SCROLLERS[area] };
    const { x, y, left, top, scrolls } = await this.#element.evaluate(aimScroll, by);
    if (!scrolls) return;
    await this.#page.mouse.move(x, y);
    await this.#page.mouse.wheel(across, down);
    await this.#page.waitForFunction(
      hasScrolled,
      { element: this.#element, selector: SCROLLERS[area], left, top },
      { timeout: PATIENCE_MS, polling: 'raf' },
    );
  }

  /**
   * Drags the bar of a pane.
   * @param {string} pane "stem" or "source-area"
   * @param {number} size pixels
   */
  async splitter(pane, size) {
    const { from, to } = await this.#element.evaluate(aimSplitter, { pane, size });
    await this.#page.mouse.move(from.x, from.y);
    await this.#page.mouse.down();
    await this.#page.mouse.move(to.x, to.y, { steps: MOVES_OF_A_HAND });
    await this.#page.mouse.up();
  }

  // Windows and messages of the element.

  /** Closes the window in front. */
  async closeWindow() {
    const { x, y } = await this.#element.evaluate(aimCloseButton);
    await this.#page.mouse.click(x, y);
  }

  /** @returns {Promise<boolean>} whether a message is shown */
  isAsked() {
    return this.#element.evaluate((/** @type {any} */ element) =>
      Boolean(element.shadowRoot.querySelector('.zav-dialog')),
    );
  }

  /**
   * Presses a button of the message that is shown.
   * @param {string} caption "OK" or "Cancel"
   */
  async answer(caption) {
    const buttons = await this.#element.$$('.zav-dialog-button');
    for (const button of buttons) {
      if ((await button.textContent()) === caption) return button.click();
    }
    throw new Error(`there is no message with a button "${caption}"`);
  }

  /**
   * Waits until nothing glides, flashes or fades any more, or the time is over.
   * @param {number} milliseconds
   */
  async wait(milliseconds) {
    await this.#page
      .waitForFunction(() => /** @type {any} */ (window).timersRunning === 0, undefined, {
        timeout: milliseconds,
      })
      .catch(() => {});
  }
}

/** For a page's init script: counts the timers that run, as timersRunning. */
export function countTimers() {
  const running = new Set();
  const { setInterval, clearInterval } = window;
  Object.assign(window, {
    setInterval: (/** @type {any[]} */ ...args) => {
      const timer = Reflect.apply(setInterval, window, args);
      running.add(timer);
      return timer;
    },
    clearInterval: (/** @type {number} */ timer) => {
      running.delete(timer);
      clearInterval.call(window, timer);
    },
  });
  Object.defineProperty(window, 'timersRunning', { get: () => running.size });
}

// What follows runs in the page.

/**
 * The places of sources and targets in their lists, by their ids and letters.
 * @param {string} url
 */
async function readNumbers(url) {
  const request = new XMLHttpRequest(); // gives a document also where a page demands trusted types
  request.open('GET', url);
  await new Promise((resolve) => {
    request.onload = resolve;
    request.send();
  });
  const item = request.responseXML;
  const source = {};
  const target = {};
  [...item.querySelector('SourceArea').children].forEach((entry, i) => {
    source[entry.getAttribute('SourceID')] = i + 1;
  });
  [...item.querySelector('Targets').children].forEach((entry, i) => {
    target[entry.getAttribute('TargetID')] = i + 1;
    target[entry.getAttribute('AnswerValue')] = i + 1;
  });
  return { source, target };
}

/**
 * Where a part of the element can be pointed at.
 * @param {HTMLElement} element
 * @param {string[]} path selectors, one for each shadow root on the way
 */
function locate(element, path) {
  /** @type {any} */
  let part = element;
  for (const selector of path) part = part?.shadowRoot?.querySelector(selector);
  if (!part) return { inSight: false };
  const parentOf = (node) => node.assignedSlot ?? node.parentElement ?? node.getRootNode().host;
  let { left, top, right, bottom } = part.getBoundingClientRect();
  const clip = (box) => {
    left = Math.max(left, box.left);
    top = Math.max(top, box.top);
    right = Math.min(right, box.right);
    bottom = Math.min(bottom, box.bottom);
  };
  clip({ left: 0, top: 0, right: innerWidth, bottom: innerHeight });
  for (let node = parentOf(part); node && node !== document.body; node = parentOf(node)) {
    if (getComputedStyle(node).overflow === 'visible') continue;
    const box = node.getBoundingClientRect();
    const scale = box.width / node.offsetWidth;
    const inner = {
      left: box.left + node.clientLeft * scale,
      top: box.top + node.clientTop * scale,
    };
    const { clientWidth, clientHeight } = node;
    clip({
      ...inner,
      right: inner.left + clientWidth * scale,
      bottom: inner.top + clientHeight * scale,
    });
  }
  const x = Math.floor((left + right) / 2);
  const y = Math.floor((top + bottom) / 2);
  let front = null;
  for (let root = document; root; root = front?.shadowRoot) {
    const hit = root.elementFromPoint(x, y);
    if (!hit || hit === front) break;
    front = hit;
  }
  let inFront = false;
  for (let node = front; node; node = parentOf(node)) inFront ||= node === part;
  const isShown = getComputedStyle(part).visibility === 'visible';
  const cover = front?.id || front?.className || front?.localName;
  return { x, y, inSight: isShown && right > left && bottom > top, inFront, cover };
}

/**
 * Where to turn the wheel, and where that should lead.
 * @param {HTMLElement} element
 * @param {{selector: string, down: number, across: number}} by
 */
function aimScroll(element, { selector, down, across }) {
  const scroller = element.shadowRoot.querySelector(selector);
  const { left: x, top: y, width, height } = scroller.getBoundingClientRect();
  const { overflowX, overflowY } = getComputedStyle(scroller);
  // No wheel moves what has no bar.
  const within = (value, overflow, most) =>
    overflow === 'hidden' ? 0 : Math.max(0, Math.min(value, most));
  const { scrollLeft, scrollTop, scrollWidth, scrollHeight, clientWidth, clientHeight } = scroller;
  const left = within(scrollLeft + across, overflowX, scrollWidth - clientWidth);
  const top = within(scrollTop + down, overflowY, scrollHeight - clientHeight);
  const scrolls = Math.abs(left - scrollLeft) >= 1 || Math.abs(top - scrollTop) >= 1;
  return { x: x + width / 2, y: y + height / 2, left, top, scrolls };
}

/** @param {{element: HTMLElement, selector: string, left: number, top: number}} wanted */
function hasScrolled({ element, selector, left, top }) {
  const { scrollLeft, scrollTop } = element.shadowRoot.querySelector(selector);
  if (Math.abs(scrollLeft - left) >= 1 || Math.abs(scrollTop - top) >= 1) return false;
  // The event comes with the frame after.
  return new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 0, true)));
}

/**
 * Bars lie behind their panes: to the right of one that stands in a row, else below it.
 * @param {HTMLElement} element
 * @param {{pane: string, size: number}} wanted
 */
function aimSplitter(element, { pane, size }) {
  const root = element.shadowRoot;
  const content = root
    .querySelector(pane === 'stem' ? '#scrItemStem' : '#scrSource')
    .getBoundingClientRect();
  const bars = [...root.querySelectorAll('#spSplitter > .bar')];
  const distance = (bar) => {
    const { left, top } = bar.getBoundingClientRect();
    const isUpright = bar.getAttribute('aria-orientation') === 'vertical';
    return isUpright ? Math.abs(left - content.right) : Math.abs(top - content.bottom);
  };
  const [bar] = bars.sort((a, b) => distance(a) - distance(b));
  const { left, top, width, height } = bar.getBoundingClientRect();
  const from = { x: left + width / 2, y: top + height / 2 };
  const isUpright = bar.getAttribute('aria-orientation') === 'vertical';
  return {
    from,
    to: isUpright
      ? { x: from.x + size - content.width, y: from.y }
      : { x: from.x, y: from.y + size - content.height },
  };
}

/** @param {HTMLElement} element */
function aimCloseButton(element) {
  const windows = [...element.shadowRoot.querySelectorAll('.zav-window')].filter(
    (each) => !each.hidden,
  );
  const [front] = windows.sort((a, b) => Number(b.style.zIndex) - Number(a.style.zIndex));
  const box = front.querySelector('.zav-window-close').getBoundingClientRect();
  return { x: box.left + box.width / 2, y: box.top + box.height / 2 };
}
