/**
 * The windows, the dialog and the calculator that the element brings along, as users meet them.
 */

import assert from 'node:assert/strict';
import { after, afterEach, before, beforeEach, describe, test } from 'node:test';

import { CLEARED, displayOf, press } from '../src/dom/CalculatorEngine.js';
import { launchBrowser, openPage } from './support/browser.js';
import { serveModules } from './support/modules.js';

// Digits and signs stand for keys of their own, words for one key.
/** @type {[why: string, keys: string, display: string][]} */
// prettier-ignore
const CALCULATIONS = [
  ['nothing yet', '', '0'],
  ['zeros before a number are not kept', '007', '7'],
  ['a point begins a number', '.5', '0.5'],
  ['one point is enough', '1.2.3', '1.23'],
  ['zeros behind the point are seen while typing', '1.00', '1.00'],
  ['twelve digits at most', '1234567890123', '123456789012'],
  ['from left to right', '2+3*4=', '20'],
  ['no noise of binary fractions', '.1+.2=', '0.3'],
  ['nor where they should cancel out', '.1+.2-.3=', '0'],
  ['twelve digits are shown', '1/3=', '0.333333333333'],
  ['more than twelve are kept', '1/3*3=', '1'],
  ['what was cut does not come back', '1/3*3-1=', '0'],
  ['the last operator counts', '2+*3=', '6'],
  ['without a right side the left one serves', '2+=', '4'],
  ['= again does the last step again', '2+3===', '11'],
  ['to another number too', '2+3=4=', '7'],
  ['a result goes on as a left side', '2+3=*2=', '10'],
  ['a digit after a result begins anew', '2+3=7', '7'],
  ['also when there was nothing to do', '5=7', '7'],
  ['percent of the left side is added', '200+10 percent =', '220'],
  ['and taken off', '200-10 percent =', '180'],
  ['else it is hundredths', '50*10 percent =', '5'],
  ['a root is a right side', '2+9 sqrt =', '5'],
  ['a root of its own', '2 sqrt', '1.41421356237'],
  ['the sign of what is typed', '5 sign 2', '-52'],
  ['and back', '5 sign sign', '5'],
  ['the sign of a result', '2+3= sign', '-5'],
  ['a right side below zero', '9-2 sign =', '11'],
  ['backspace', '12.3 backspace backspace', '12'],
  ['backspace down to nothing', '5 sign backspace', '0'],
  ['a result is not taken apart', '12+3= backspace', '15'],
  ['CE takes back a number', '2+3 CE 4=', '6'],
  ['and leaves nothing of it', '2+3 CE =', '2'],
  ['C takes back all', '2+3 C 4=', '4'],
  ['memory adds up and outlives C', '5 M+ 3 M+ C MR', '8'],
  ['memory as a right side', '7 M+ 2*MR+1=', '15'],
  ['memory cleared', '5 M+ MC MR', '0'],
  ['division by zero', '5/0=', 'Cannot divide by zero'],
  ['which no key but C ends', '5/0=7+CE=', 'Cannot divide by zero'],
  ['C ends it', '5/0= C 7', '7'],
  ['zero by zero', '0/0+', 'Cannot divide by zero'],
  ['a root below zero', '9 sign sqrt', 'Invalid input'],
  ['large results', '999999999999*10=', '9.99999999999e+12'],
  ['small results', '1/999999999999=', '1e-12'],
  ['too large a result', `999999999999*${'='.repeat(30)}`, 'Number too large'],
];

test('what the calculator shows after keys', () => {
  for (const [why, keys, display] of CALCULATIONS) {
    const sequence = keys.match(/[a-z]{3,}|[MC][RCE+]|\S/g) ?? [];
    assert.equal(displayOf(sequence.reduce(press, CLEARED)), display, `${why}: ${keys}`);
  }
});

describe('in a browser', { timeout: 60_000 }, () => {
  /** @type {import('./support/server.js').TestServer} */
  let server;
  /** @type {import('playwright-core').Browser} */
  let browser;
  /** @type {import('playwright-core').Page} */
  let page;
  /** @type {import('./support/browser.js').PageRecord} */
  let record;

  before(async () => {
    server = await serveModules();
    browser = await launchBrowser();
  });

  after(async () => {
    await browser.close();
    await server.close();
  });

  beforeEach(async () => {
    ({ page, record } = await openPage(browser, `${server.origin}/`, { hasTouch: true }));
    await page.evaluate(prepareElement);
  });

  afterEach(async () => {
    assert.deepEqual([...record.violations, ...record.errors], []);
    await page.context().close();
  });

  /**
   * Runs in the page: a shadow root of the least useful size with an opener in it, which has the focus,
   * a container for what is tested, and a button beside it all.
   */
  async function prepareElement() {
    const modules = await Promise.all([
      import('/src/dom/FloatingWindow.js'),
      import('/src/dom/MessageDialog.js'),
      import('/src/dom/Calculator.js'),
    ]);
    Object.assign(window, ...modules, { events: [] });
    const host = document.createElement('div');
    const size = { position: 'relative', width: '533px', height: '300px', overflow: 'hidden' };
    Object.assign(host.style, size);
    const root = host.attachShadow({ mode: 'open' });
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(modules.map((module) => module.styles).join(''));
    root.adoptedStyleSheets = [sheet];
    window.container = document.createElement('div');
    Object.assign(window.container.style, { position: 'absolute', inset: '0' });
    const opener = document.createElement('button');
    opener.textContent = 'Opener';
    root.append(opener, window.container);
    const beside = document.createElement('button');
    beside.textContent = 'Beside';
    document.body.append(host, beside);
    opener.focus();
    window.openWindow = (title, options) => {
      const content = document.createElement('p');
      content.textContent = `Content of ${title}`;
      return new window.FloatingWindow(window.container, {
        title,
        content,
        width: 200,
        height: 100,
        onClosed: () => window.events.push(`${title} closed`),
        onFocused: () => window.events.push(`${title} focused`),
        ...options,
      });
    };
  }

  const events = () => page.evaluate(() => window.events.splice(0));
  const focused = () =>
    page.evaluate(() => window.container.getRootNode().activeElement?.textContent);
  /** @param {string} name */
  const frame = (name) => page.getByRole('dialog', { name });
  /** @param {string} name */
  const button = (name) => page.getByRole('button', { name, exact: true });

  /** @param {import('playwright-core').Locator} locator */
  async function box(locator) {
    const { x, y, width, height } = (await locator.boundingBox()) ?? assert.fail('not shown');
    return { left: x, top: y, right: x + width, bottom: y + height };
  }

  /**
   * Drags a window by its caption.
   * @param {string} name
   * @param {number} byX
   * @param {number} byY
   */
  async function drag(name, byX, byY) {
    const { left, top } = await box(page.getByText(name, { exact: true }));
    await page.mouse.move(left + 4, top + 4);
    await page.mouse.down();
    await page.mouse.move(left + 4 + byX / 2, top + 4 + byY / 2);
    await page.mouse.move(left + 4 + byX, top + 4 + byY);
    await page.mouse.up();
  }

  test('a window follows the pointer, also in a scaled container, and stops at the edges', async () => {
    for (const scale of [1, 0.5]) {
      await page.evaluate((factor) => {
        window.container.style.transformOrigin = '0 0';
        window.container.style.transform = `scale(${factor})`;
        window.openWindow(`Scaled ${factor}`, { left: 20, top: 10 });
      }, scale);
      const name = `Scaled ${scale}`;
      const start = await box(frame(name));
      await drag(name, 40, 30);
      const moved = await box(frame(name));
      assert.deepEqual([moved.left - start.left, moved.top - start.top], [40, 30], name);
    }
    const container = await box(page.locator('div').first());
    await page.evaluate(() => window.container.style.removeProperty('transform'));
    await drag('Scaled 1', 2000, 2000);
    const far = await box(frame('Scaled 1'));
    const caption = await box(button('Close').first());
    assert.equal(far.right, container.right);
    assert.ok(caption.bottom <= container.bottom, 'the caption is within');
    await drag('Scaled 1', -2000, -2000);
    const near = await box(frame('Scaled 1'));
    assert.deepEqual([near.left, near.top], [container.left, container.top]);
  });

  test('a window stays within reach when its container shrinks, and goes back when it can', async () => {
    await page.evaluate(() => (window.win = window.openWindow('Window', { left: 300, top: 150 })));
    const before = await box(frame('Window'));
    const resize = (/** @type {string} */ width) =>
      page.evaluate(async (value) => {
        window.container.style.width = value;
        await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));
      }, width);
    await resize('250px');
    const container = await box(page.locator('div').first());
    assert.ok((await box(frame('Window'))).right <= container.left + 250);
    await resize('100px');
    assert.ok((await box(button('Close'))).right <= container.left + 100, 'also a wider one');
    await resize('');
    assert.deepEqual(await box(frame('Window')), before);
    await page.evaluate(() => window.win.resize(300, 100));
    assert.equal((await box(frame('Window'))).right, container.right, 'a window that grows');
    await resize('400px');
    await drag('Window', 50, 0);
    await resize('');
    const kept = container.left + 400;
    assert.equal((await box(frame('Window'))).right, kept, 'it stays where it could be dragged to');
  });

  test('a finger drags a window; when the system takes the finger away, it goes back', async () => {
    await page.evaluate(() => window.openWindow('Window', { left: 50, top: 50 }));
    const start = await box(frame('Window'));
    const touch = await page.context().newCDPSession(page);
    const send = (/** @type {string} */ type, /** @type {object[]} */ touchPoints) =>
      touch.send('Input.dispatchTouchEvent', { type, touchPoints });
    const from = { x: start.left + 20, y: start.top + 10 };
    const to = { x: from.x + 60, y: from.y + 30 };
    for (const [ending, wanted] of [
      ['touchCancel', start.left],
      ['touchEnd', start.left + 60],
    ]) {
      await send('touchStart', [from]);
      await send('touchMove', [to]);
      assert.equal((await box(frame('Window'))).left, start.left + 60);
      await send(ending, []);
      assert.equal((await box(frame('Window'))).left, wanted, ending);
    }
  });

  test('windows take the focus, tell their owners, and give it back', async () => {
    await page.evaluate(() => {
      window.openWindow('First');
      window.second = window.openWindow('Second', { left: 250 });
    });
    assert.equal(await focused(), 'SecondContent of Second');
    assert.deepEqual(await events(), [], 'an owner knows what it opens');
    await page.getByText('Content of First').click();
    assert.deepEqual([...new Set(await events())], ['First focused']);
    await page.evaluate(() => window.second.focus());

    await page.evaluate(() => window.second.setVisible(false));
    assert.equal(await frame('Second').isVisible(), false);
    assert.equal(await focused(), 'FirstContent of First');
    await page.evaluate(() => window.second.setVisible(true));
    assert.equal(await focused(), 'SecondContent of Second');

    assert.deepEqual(await events(), []);
    await page.keyboard.press('Escape');
    assert.deepEqual(await events(), ['Second closed']);
    await button('Close').click();
    assert.deepEqual((await events()).at(-1), 'First closed');
    assert.equal(await focused(), 'Opener');
  });

  /** @type {[why: string, style: number, keys: string[], answer: number][]} */
  const ANSWERS = [
    ['one button', 0, ['Enter'], 1],
    ['one button left with Escape', 16, ['Escape'], 1],
    ['OK has the focus', 1, ['Enter'], 1],
    ['the second button', 1, ['Tab', 'Enter'], 2],
    ['the focus goes round', 1, ['Tab', 'Tab', 'Space'], 1],
    ['backwards too', 33, ['Shift+Tab', 'Space'], 2],
    ['Escape is Cancel', 17, ['Escape'], 2],
    ['other styles have OK alone', 3, ['Tab', 'Enter'], 1],
  ];

  test('a dialog is answered with keys and gives the focus back', async () => {
    for (const [why, style, keys, answer] of ANSWERS) {
      await page.evaluate((number) => {
        const message = { text: 'Sure?', title: 'Reset', style: number };
        const { answered } = window.showMessage(window.container, message);
        answered.then((given) => window.events.push(given));
      }, style);
      await page.getByRole('alertdialog', { name: 'Reset' }).waitFor();
      for (const key of keys) await page.keyboard.press(key);
      assert.deepEqual(await events(), [answer], why);
      assert.equal(await page.getByRole('alertdialog').count(), 0, why);
      assert.equal(await focused(), 'Opener', why);
    }
  });

  test('a dialog covers the element and nothing else, and shows text as it is', async () => {
    const text = `<b>one</b>\ntwo ${'and many more words '.repeat(100)}`;
    await page.evaluate((message) => {
      document.querySelector('body > button').onclick = () => window.events.push('beside');
      const opener = window.container.previousSibling;
      opener.onclick = () => window.events.push('opener');
      window.dialog = window.showMessage(window.container, {
        text: message,
        title: 'Words',
        style: 1,
      });
    }, text);
    const container = await box(page.locator('div').first());
    const dialog = page.getByRole('alertdialog');
    const { left, top, right, bottom } = await box(dialog);
    const isWithin =
      left >= container.left && right <= container.right && bottom <= container.bottom;
    assert.ok(isWithin && top >= container.top, 'as large as it may be');
    assert.ok((await box(button('OK'))).bottom <= bottom, 'the buttons are in sight');
    assert.equal(await dialog.getByText('<b>one</b>').textContent(), text);

    await page.mouse.click(container.left + 5, container.top + 5);
    assert.deepEqual(await events(), [], 'what is covered cannot be pressed');
    await page.keyboard.press('Shift+Tab');
    await page.keyboard.press('PageDown');
    const scrolled = () =>
      dialog.getByText('<b>one</b>').evaluate((element) => element.scrollTop > 0);
    for (let i = 0; i < 50 && !(await scrolled()); i++) await page.waitForTimeout(20);
    assert.ok(await scrolled(), 'keys scroll the text');

    await button('Beside').click();
    assert.deepEqual(await events(), ['beside']);
    await page.evaluate(() => window.dialog.close());
    assert.equal(await page.evaluate(() => window.dialog.answered), 2);
    assert.notEqual(await focused(), 'Opener', 'the focus stays where the user has put it');
  });

  test('a key that is held down since before the dialog is no answer', async () => {
    await page.evaluate(() => {
      const opener = window.container.previousSibling;
      opener.onclick = () => {
        const message = { text: 'Sure?', title: 'Reset', style: 1 };
        window.showMessage(window.container, message).answered.then((n) => window.events.push(n));
      };
    });
    await page.keyboard.down('Enter');
    await page.keyboard.down('Enter');
    await page.keyboard.up('Enter');
    assert.deepEqual(await events(), []);
    await page.keyboard.press('Enter');
    assert.deepEqual(await events(), [1]);
  });

  test('the calculator works with keyboard and mouse', async () => {
    await page.evaluate(() => {
      window.container.addEventListener('keydown', (event) => window.events.push(event.key));
      const onClosed = () => window.events.push('closed');
      window.calculator = new window.Calculator(window.container, { onClosed });
    });
    const display = page.getByRole('status');
    const shows = async (/** @type {string} */ text) => {
      assert.equal(await display.textContent(), text);
      const fits = await display.evaluate((output) => output.scrollWidth <= output.clientWidth);
      assert.ok(fits, `${text} fits`);
    };
    for (const key of '12,5*4') await page.keyboard.press(key);
    await page.keyboard.press('Enter');
    await shows('50');
    for (const name of ['Clear', '7', 'Subtract', '9']) await button(name).click();
    await page.keyboard.press('Enter');
    await shows('−2');
    await button('Memory add').click();
    await button('Clear').press('Tab');
    await shows('−2');
    await page.getByText('7', { exact: true }).press('Enter');
    await shows('7');
    for (const key of '/300000=') await page.keyboard.press(key);
    await button('Change sign').click();
    await shows('−0.0000233333333333');
    for (const key of ['/', '0', '=']) await page.keyboard.press(key);
    await shows('Cannot divide by zero');
    await page.keyboard.press('Delete');
    assert.deepEqual(await events(), ['Tab'], 'its keys are not those of the item');
    await page.keyboard.press('Escape');
    assert.deepEqual(await events(), ['closed']);
    assert.equal(await focused(), 'Opener');
  });
});
