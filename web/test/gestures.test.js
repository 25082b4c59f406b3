/**
 * Gestures of candidates in real pages, among them those that go wrong: whatever happens to a pointer,
 * nothing is lost, and the next gesture works.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launchBrowser } from './support/browser.js';
import { openExam, showItem } from './support/exam.js';
import { serveSite } from './support/site.js';

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {Awaited<ReturnType<typeof openExam>>} */
let shared;

before(async () => {
  server = await serveSite();
  browser = await launchBrowser();
  shared = await openExam(browser, server);
});

after(async () => {
  await browser?.close();
  await server?.close();
});

/**
 * The heart in a page: the one that most tests share, or one with options of its own.
 * @param {import('playwright-core').BrowserContextOptions | undefined} options
 * @param {(seat: Seat) => Promise<void>} use
 *
 * @typedef {object} Seat
 * @property {import('playwright-core').Page} page
 * @property {import('./support/candidate.js').Candidate} candidate
 * @property {any} element
 * @property {import('playwright-core').CDPSession} input
 */
async function atHeart(options, use) {
  const { page, record } = options ? await openExam(browser, server, options) : shared;
  const { host, element, candidate } = await showItem(page);
  const input = await page.context().newCDPSession(page);
  try {
    await use({ page, candidate, element, input });
    const told = await host.evaluate((each) => each.takeEvents());
    const logged = told.filter(({ event }) => event === 'log');
    assert.deepEqual([logged, record.errors, record.violations], [[], [], []]);
  } finally {
    if (options) await page.context().close();
    else await element.evaluate((each) => each.remove());
  }
}

/** Carries an item over places, under the pointer all the way, and lets it go over the last one. */
async function carry(seat, from, ...places) {
  await seat.candidate.press(from);
  for (const place of places) await hold(seat, place);
  await seat.candidate.release();
}

async function hold(seat, place) {
  await assertHeldAt(seat, await seat.candidate.moveTo(place));
}

/** The middle of the dragged item is where the pointer is. */
async function assertHeldAt({ element }, { x, y }) {
  const box = await element.evaluate((each) =>
    each.shadowRoot.querySelector('#pcDrag').getBoundingClientRect().toJSON(),
  );
  const off = [box.x + box.width / 2 - x, box.y + box.height / 2 - y];
  assert.ok(Math.hypot(...off) < 2, `the item is ${off} pixels away from the pointer`);
}

/** Moves a mouse whose button went up where nobody saw it. */
async function moveReleased({ candidate, input }, place) {
  const { x, y } = await candidate.placeOf(place, { mayBeCovered: true });
  await input.send('Input.dispatchMouseEvent', { type: 'mouseMoved', x, y, buttons: 0 });
}

/** A finger or a pen, which a browser tells apart from a mouse. */
const POINTERS = {
  finger: async ({ candidate, input }, type, place) => {
    const touchPoints = place ? [await candidate.placeOf(place, { mayBeCovered: true })] : [];
    await input.send('Input.dispatchTouchEvent', { type: `touch${type}`, touchPoints });
  },
  pen: async ({ candidate, input }, type, place) => {
    const { x, y } = await candidate.placeOf(place, { mayBeCovered: true });
    const types = { Start: 'mousePressed', Move: 'mouseMoved', End: 'mouseReleased' };
    const buttons = type === 'End' ? 0 : 1;
    const pen = { pointerType: 'pen', button: 'left', buttons, clickCount: 1, force: 0.5 };
    await input.send('Input.dispatchMouseEvent', { type: types[type], x, y, ...pen });
  },
};

/** @type {{why: string, options?: any, act: (seat: Seat) => Promise<unknown>, want: string[]}[]} */
const GESTURES = [
  {
    why: 'a press and a release in one place move nothing',
    act: ({ candidate }) => candidate.drag('source 9').to('source 9'),
    want: [],
  },
  {
    why: 'an item stays under the pointer',
    act: (seat) => carry(seat, 'source 9', 'target 6', 'nowhere', 'target 1'),
    want: ['A1'],
  },
  {
    why: 'a single far move is enough',
    act: async ({ candidate }) => {
      await candidate.press('source 9');
      await candidate.moveTo('target 1', 1);
      await candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'a fling of three moves',
    act: async ({ candidate, input }) => {
      const to = await candidate.placeOf('target 1');
      await candidate.press('source 9');
      const mouse = (type, x, y, button = 'left') =>
        input.send('Input.dispatchMouseEvent', { type, x, y, button, buttons: 1, clickCount: 1 });
      await Promise.all([
        mouse('mouseMoved', to.x - 150, to.y + 90),
        mouse('mouseMoved', to.x - 70, to.y + 40),
        mouse('mouseMoved', to.x, to.y),
        mouse('mouseReleased', to.x, to.y),
      ]);
      await candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'an item let go outside of the window stays what it was',
    act: async ({ candidate, page }) => {
      await candidate.press('source 9');
      await page.mouse.move(-300, 5000);
      await candidate.release();
    },
    want: [],
  },
  {
    why: 'a placed item let go outside of the window is taken out',
    act: async ({ candidate, page }) => {
      await candidate.drag('source 9').to('target 1');
      await candidate.press('target 1');
      await page.mouse.move(5000, -300);
      await candidate.release();
    },
    want: [],
  },
  {
    why: 'back from outside of the window, the drag goes on',
    act: async ({ candidate, page }) => {
      await candidate.press('source 9');
      await page.mouse.move(-300, 5000);
      await candidate.moveTo('target 1');
      await candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'a button that goes up unseen drops nothing',
    act: async (seat) => {
      await seat.candidate.press('source 9');
      await seat.candidate.moveTo('target 1');
      await moveReleased(seat, 'target 2');
      await moveReleased(seat, 'source 3');
      await seat.candidate.release();
    },
    want: [],
  },
  {
    why: 'a button that goes up unseen leaves a placed item where it was',
    act: async (seat) => {
      await seat.candidate.drag('source 9').to('target 1');
      await seat.candidate.press('target 1');
      await seat.candidate.moveTo('target 2');
      await moveReleased(seat, 'target 2');
      await moveReleased(seat, 'target 3');
      await seat.candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'the right button during a drag neither drops nor asks for a menu',
    act: async ({ candidate, page }) => {
      const menu = page.evaluate(
        () =>
          new Promise((resolve) => {
            addEventListener('contextmenu', (event) => resolve(event.defaultPrevented));
          }),
      );
      await candidate.press('source 9');
      await candidate.moveTo('target 2');
      await page.mouse.down({ button: 'right' });
      await page.mouse.up({ button: 'right' });
      assert.deepEqual(await candidate.responses(), []);
      assert.equal(await menu, true);
      await candidate.moveTo('target 1');
      await candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'the right button alone drags nothing',
    act: async ({ candidate, page }) => {
      const from = await candidate.placeOf('source 9');
      await page.mouse.move(from.x, from.y);
      await page.mouse.down({ button: 'right' });
      await candidate.moveTo('target 1');
      await page.mouse.up({ button: 'right' });
    },
    want: [],
  },
  ...['finger', 'pen'].map((pointer) => ({
    why: `a ${pointer} drags`,
    options: { hasTouch: true },
    act: async (seat) => {
      const act = POINTERS[pointer];
      await act(seat, 'Start', 'source 9');
      for (const place of ['source-area', 'target 2', 'target 1']) await act(seat, 'Move', place);
      await act(seat, 'End', pointer === 'pen' ? 'target 1' : '');
    },
    want: ['A1'],
  })),
  {
    why: 'a touch that the system takes away drops nothing',
    options: { hasTouch: true },
    act: async (seat) => {
      await POINTERS.finger(seat, 'Start', 'source 9');
      await POINTERS.finger(seat, 'Move', 'target 2');
      await POINTERS.finger(seat, 'Move', 'target 1');
      await POINTERS.finger(seat, 'Cancel', '');
    },
    want: [],
  },
  {
    why: 'another finger is no part of the drag',
    options: { hasTouch: true },
    act: async (seat) => {
      const touch = (type, ...touchPoints) =>
        seat.input.send('Input.dispatchTouchEvent', { type: `touch${type}`, touchPoints });
      const at = async (place, id) => ({ ...(await seat.candidate.placeOf(place)), id });
      const other = await at('title', 1);
      const away = { ...other, x: other.x + 300 };
      const from = await at('source 9', 2);
      const to = await at('target 1', 2);
      await touch('Start', other);
      await touch('Start', other, from);
      await touch('Move', other, await at('source-area', 2));
      await touch('Move', away, to);
      await seat.page.evaluate(() => new Promise((resolve) => requestAnimationFrame(resolve)));
      await assertHeldAt(seat, to);
      await touch('End'); // the other one first
    },
    want: ['A1'],
  },
  {
    why: 'the host shows the element smaller than it is',
    act: async (seat) => {
      await seat.element.evaluate(({ style }) => {
        style.transform = 'translate(40px, 30px) scale(0.6)';
        style.transformOrigin = '0 0';
      });
      await carry(seat, 'source 9', 'target 6', 'target 1');
    },
    want: ['A1'],
  },
  {
    why: 'the page shows the element zoomed',
    act: async (seat) => {
      await seat.element.evaluate(({ style }) => {
        style.zoom = '0.7';
      });
      await carry(seat, 'source 9', 'target 6', 'target 1');
    },
    want: ['A1'],
  },
  {
    why: 'a screen of two dots to a pixel',
    options: { deviceScaleFactor: 2 },
    act: (seat) => carry(seat, 'source 9', 'target 6', 'target 1'),
    want: ['A1'],
  },
  {
    why: 'the element stands halfway out of the window',
    options: { viewport: { width: 700, height: 500 } },
    act: async (seat) => {
      await seat.element.evaluate(({ style }) => {
        style.margin = '400px';
        scrollTo(430, 580);
      });
      await carry(seat, 'source 9', 'target 1');
      await seat.page.evaluate(() => scrollTo(550, 480));
      await carry(seat, 'target 1', 'target 4');
    },
    want: ['D1'],
  },
  {
    why: 'the page scrolls during a drag',
    options: { viewport: { width: 1100, height: 500 } },
    act: async (seat) => {
      await seat.candidate.press('source 1');
      await hold(seat, 'target 4');
      await seat.page.evaluate(() => scrollTo(0, 200));
      await hold(seat, 'target 6');
      await seat.candidate.release();
    },
    want: ['F4'],
  },
  {
    why: 'the page moves the element during a drag',
    act: async (seat) => {
      await seat.candidate.press('source 9');
      await hold(seat, 'target 4');
      await seat.element.evaluate(({ style }) => {
        style.margin = '90px 0 0 50px';
      });
      await seat.page.waitForTimeout(150); // places hold for a while
      await hold(seat, 'target 1');
      await seat.candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'the element gets another size during a drag',
    act: async (seat) => {
      await seat.candidate.press('source 9');
      await hold(seat, 'target 4');
      await resize(seat, 800, 600);
      await seat.candidate.moveTo('target 1');
      await seat.candidate.release();
    },
    want: ['A1'],
  },
  {
    why: 'the work area is scrolled with the wheel during a drag',
    act: async (seat) => {
      await resize(seat, 1024, 450);
      await assert.rejects(seat.candidate.placeOf('target 6'), /out of sight/);
      await seat.candidate.press('source 1');
      await hold(seat, 'target 1');
      await seat.candidate.scroll('work-area', 1000);
      await hold(seat, 'target 6');
      await seat.candidate.release();
    },
    want: ['F4'],
  },
];

/** Gives the element another box, which it follows. */
async function resize({ page, element }, width, height) {
  await element.evaluate(
    ({ style }, size) => {
      style.width = `${size.width}px`;
      style.height = `${size.height}px`;
    },
    { width, height },
  );
  await page.waitForFunction(
    ([each, size]) => each.shadowRoot.querySelector('.form').style.width === size,
    [element, `${width}px`],
  );
}

for (const { why, options, act, want } of GESTURES) {
  test(why, () =>
    atHeart(options, async (seat) => {
      await act(seat);
      assert.deepEqual(await seat.candidate.responses(), want);
      await seat.candidate.drag('source 6').to('target B');
      assert.deepEqual(await seat.candidate.responses(), [...want, 'B2'], 'the next gesture');
      await seat.page.waitForFunction(
        (element) =>
          getComputedStyle(element.shadowRoot.querySelector('#pcDrag')).visibility === 'hidden',
        seat.element,
        { timeout: 3000 },
      );
    }),
  );
}

test('a prompt to scroll is not in the way of the wheel', async () => {
  const { page } = await openExam(browser, server);
  const { element, candidate } = await showItem(page, 'elements');
  await element.evaluate((each) => each.GetExternalDisplayStatus());
  await candidate.answer('OK');
  const prompt = await element.waitForSelector('#ssWorkScroll', { state: 'visible' });
  const { x, y } = await prompt.boundingBox();
  await page.mouse.move(x + 5, y + 5);
  await page.mouse.wheel(0, 40);
  await page.waitForFunction(
    (each) => each.shadowRoot.querySelector('#scrWork > .scroller').scrollTop === 40,
    element,
    { timeout: 3000 },
  );
  await page.context().close();
});

test('two items on a page do not disturb each other', async () => {
  const { page, record } = await openExam(browser, server, {
    viewport: { width: 1100, height: 1600 },
  });
  const heart = await showItem(page, 'heart');
  const circuit = await showItem(page, 'circuit');
  const both = async () => [await heart.candidate.responses(), await circuit.candidate.responses()];
  await heart.candidate.drag('source 9').to('target 1');
  await circuit.candidate.drag('source 3').to('target 1');
  await heart.candidate.drag('source 6').to('target 2');
  await circuit.candidate.drag('source 1').to('target 2');
  assert.deepEqual(await both(), [
    ['A1', 'B2'],
    ['A3', 'B1'],
  ]);

  await circuit.candidate.press('source 2');
  const elsewhere = await heart.candidate.placeOf('target 3');
  await page.mouse.move(elsewhere.x, elsewhere.y, { steps: 5 });
  await circuit.candidate.release();
  await heart.candidate.drag('target 2').to('target 3');
  assert.deepEqual(await both(), [
    ['A1', 'C2'],
    ['A3', 'B1'],
  ]);

  await heart.candidate.press('source 1');
  await heart.candidate.moveTo('target 4');
  await heart.element.evaluate((element) => element.dispose());
  await page.mouse.move(elsewhere.x, elsewhere.y);
  await page.mouse.up();
  await circuit.candidate.drag('target 2').to('target 3');
  assert.deepEqual(await both(), [[], ['A3', 'C1']]);
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});

/** @type {[keys: string, responses: string[]][]} */
const KEYBOARD = [
  ['Enter Right Right Right Enter', ['C3']],
  ['Space Down Space', ['A3']],
  ['Enter Left Up Enter', ['E3']],
  ['Enter Right Escape Enter Right Enter', ['A3']],
  ['Enter Right Enter Tab Tab Tab Delete', []],
  ['Enter Right Enter Tab Tab Tab Enter Right Enter', ['B3']],
  ['Enter Right Tab Tab Tab Tab Enter', ['B3']],
];

test('with the keyboard alone', () =>
  atHeart({ viewport: { width: 1100, height: 500 } }, async ({ candidate, element, page }) => {
    const order = [];
    for (let i = 0; i < 21; i++) {
      await candidate.key('Tab');
      order.push(await element.evaluate(focusedPart));
    }
    const covers = (name, count) => Array.from({ length: count }, (_, i) => `${name}-${i + 1}`);
    assert.deepEqual(order, [
      ...['btnReset', 'btnInstructions', 'btnCalculator', 'level bar', 'upright bar'],
      ...covers('imgSourceCover', 9),
      ...covers('imgTargetCover', 6),
      '',
    ]);
    for (const [keys, responses] of KEYBOARD) {
      await element.evaluate((each) => {
        each.state = '<State><Responses/></State>';
      });
      await candidate.focus('source 6');
      await candidate.key('Tab');
      const scrolled = await page.evaluate(() => scrollY);
      for (const key of keys.split(' ')) await candidate.key(key);
      assert.deepEqual(await candidate.responses(), responses, keys);
      if (!keys.includes('Tab')) assert.equal(await page.evaluate(() => scrollY), scrolled, keys);
    }
  }));

/** Runs in the page: what has the focus within an element; '' for nothing. */
function focusedPart(element) {
  let focused = element.shadowRoot.activeElement;
  while (focused?.shadowRoot?.activeElement) focused = focused.shadowRoot.activeElement;
  if (!focused || focused.id) return focused?.id ?? '';
  return [...focused.classList].reverse().join(' ');
}

test('bars between panes follow the mouse and the arrows', () =>
  atHeart(undefined, async ({ candidate, element }) => {
    const sizes = () =>
      element.evaluate((each) => [
        each.shadowRoot.querySelector('#scrItemStem').offsetHeight,
        each.shadowRoot.querySelector('#scrSource').offsetWidth,
      ]);
    await candidate.splitter('stem', 180);
    assert.deepEqual((await sizes())[0], 180);
    await candidate.splitter('source-area', 300);
    assert.deepEqual(await sizes(), [180, 300]);
    await candidate.focus('level bar');
    for (const key of ['Down', 'Down', 'Up']) await candidate.key(key);
    assert.deepEqual(await sizes(), [200, 300]);
    await candidate.focus('upright bar');
    for (const key of ['Left', 'Left', 'Right']) await candidate.key(key);
    assert.deepEqual(await sizes(), [200, 280]);
    assert.equal(await element.evaluate(focusedPart), 'upright bar');
  }));

/** @type {[why: string, css: string][]} */
const SHEETS = [
  ['everything around it unset', '*:not(zav-drag-drop) { all: unset !important; }'],
  ['pictures', 'img, canvas { max-width: 100%; height: auto; display: block; filter: blur(9px); }'],
  ['boxes', '*, *::before { box-sizing: content-box; transform: none; margin: 0; padding: 0; }'],
  ['buttons', 'button, div, table, td { all: unset !important; display: inline !important; }'],
  ['what lies in it', 'zav-drag-drop *, .control, .root, #scrWork { display: none !important; }'],
  [
    'letters',
    `zav-drag-drop { font: italic bold 30px/3 serif; letter-spacing: 4px; word-spacing: 9px;
      text-transform: uppercase; font-variant: small-caps; color: red; text-shadow: 0 0 9px; }`,
  ],
  [
    'lines',
    `zav-drag-drop { text-align: right; text-indent: 40px; white-space: pre; direction: rtl;
      line-break: anywhere; hyphens: auto; tab-size: 1; writing-mode: vertical-rl; }`,
  ],
  ['tables', 'body { border-collapse: collapse; border-spacing: 9px; caption-side: bottom; }'],
  ['the pointer', 'body { cursor: wait; pointer-events: auto; user-select: all; }'],
];

test('style sheets of the page do not change the element', () =>
  atHeart(undefined, async ({ element }) => {
    const shown = await element.evaluate(geometry);
    assert.ok(shown.length > 100);
    for (const [why, css] of SHEETS) {
      await element.evaluate(setSheet, css);
      const now = await element.evaluate(geometry);
      assert.deepEqual(
        now.filter((line, i) => line !== shown[i]),
        [],
        why,
      );
      assert.equal(now.length, shown.length);
    }
    await element.evaluate(setSheet, '');
  }));

/** Runs in the page. */
function setSheet(_element, css) {
  const sheet = new CSSStyleSheet();
  sheet.replaceSync(css);
  document.adoptedStyleSheets = [sheet];
}

/** Runs in the page: where everything in an element stands, and how its letters are drawn. */
function geometry(element) {
  const { left, top } = element.getBoundingClientRect();
  const walk = (root) =>
    [...root.querySelectorAll('*')].flatMap((node) => {
      const box = node.getBoundingClientRect();
      const { fontSize, fontStyle, color, textAlign, cursor, direction } = getComputedStyle(node);
      const letters = [fontSize, fontStyle, color, textAlign, cursor, direction].join(' ');
      const place = [box.left - left, box.top - top, box.width, box.height].join(' ');
      const inside = node.shadowRoot ? walk(node.shadowRoot) : [];
      return [`${node.id || node.className || node.localName}: ${place}, ${letters}`, ...inside];
    });
  return walk(element.shadowRoot);
}

test('a drag lays nothing out', () =>
  atHeart(undefined, async ({ candidate, input, page }) => {
    await input.send('Performance.enable');
    const layouts = async () => {
      const { metrics } = await input.send('Performance.getMetrics');
      return metrics.find(({ name }) => name === 'LayoutCount').value;
    };
    const frame = () =>
      page.evaluate(() => new Promise((resolve) => requestAnimationFrame(resolve)));
    await candidate.press('source 9');
    await candidate.moveTo('target 1');
    await frame();
    const before = await layouts();
    for (let move = 0; move < 60; move++) {
      await page.mouse.move(280 + 10 * (move % 40), 200 + 5 * move);
      await frame();
    }
    const count = (await layouts()) - before;
    assert.ok(count <= 5, `${count} layouts in 60 moves`);
    await candidate.release();
  }));
