/**
 * Hosts that act in the middle of a call that is made to them: at each call of a whole session in turn.
 * The page must neither hang nor fail, and the same element has to serve the next session.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launchBrowser } from './support/browser.js';
import { openExam } from './support/exam.js';
import { serveSite } from './support/site.js';

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;

before(async () => {
  server = await serveSite();
  browser = await launchBrowser();
});

after(async () => {
  await browser?.close();
  await server?.close();
});

/**
 * Runs in the page: sessions in which the host acts at the first, the second, ... call, up to the
 * first that is never made.
 * @param {{act: string, stride: number}} given
 */
async function playAll({ act, stride }) {
  const FOLDER = '/items/circuit/';
  const { toBytes } = window.ExamHost;
  const xml = toBytes(await (await fetch(`${FOLDER}item.xml`)).text());
  const STATE = '<State><Responses><Response>A1</Response></Responses></State>';
  const acts = {
    dispose: (element) => element.dispose(),
    remove: (element) => element.remove(),
    free: (element) => element.FreeExternalDisplay(),
    initialise: (element) => element.InitExternalDisplay(xml).then(() => {}),
    state: (element) => (element.state = STATE),
    resize: (element) => element.ResizeExternalDisplay(0, 0, 12000, 9000),
    hide: (element) => element.HideExternalDisplay(),
    score: (element) => element.ScoreExternalDisplay(),
    rescore: (element) => element.RescoreExternalDisplay(toBytes('A1')),
    answer: () => {},
  };
  /** Lets what waits have its turn; timers would wait longer. */
  const turn = () =>
    new Promise((resolve) => {
      const { port1, port2 } = new MessageChannel();
      port1.onmessage = () => (port1.close(), resolve());
      port2.postMessage(0);
    });
  const failures = [];
  let acted = false;

  class Session {
    calls = 0;
    element = document.createElement('zav-drag-drop');

    constructor(at) {
      this.at = at;
      this.element.style.cssText = 'display: block; width: 1024px; height: 768px';
      document.body.append(this.element);
      const hear = () => this.hear();
      for (const type of ['error-logged', 'responses-changed', 'state-changed']) {
        this.element.addEventListener(`zav-${type}`, hear);
      }
      // A picture is missing, so that the host hears of errors.
      const path = (name) =>
        FOLDER + (name === 'reading-slot.png' ? 'none.png' : `graphics/${name}`);
      const told =
        (answer) =>
        (...args) => (hear(), answer?.(...args));
      this.element.parent = {
        LogError: told(),
        ShowMessage: told(() => (act === 'answer' ? Promise.resolve(1) : 1)),
        GetGraphicsPath: told(path),
      };
      this.support = {
        GetLocalizePath: told((name) => FOLDER + name),
        GetGraphicsPath: told(path),
        GetSupportFileDir: told(() => '/support/'),
      };
    }

    hear() {
      if (++this.calls !== this.at) return;
      acted = true;
      try {
        acts[act](this.element);
      } catch (error) {
        if (!['Error', 'AutomationError'].includes(error.name)) failures.push(`${error.stack}`);
      }
    }

    async do(step) {
      try {
        await step();
      } catch (error) {
        const isTold = /not initialised|busy|middle of a call|not set/.test(error.message);
        if (!isTold) failures.push(`call ${this.at}: ${error.stack}`);
      }
      await turn();
    }

    press(name, keyCode) {
      const options = { keyCode, key: 'any', bubbles: true, composed: true };
      const root = this.element.shadowRoot;
      const cover = name ? root.querySelector(`[id^="${name}"]`) : root.activeElement;
      cover?.focus();
      cover?.dispatchEvent(new KeyboardEvent('keydown', options));
    }

    click(id) {
      this.element.shadowRoot.querySelector('#brwButtons')?.shadowRoot?.querySelector(id)?.click();
    }

    async show() {
      const { element } = this;
      element.ExternalSupport = this.support;
      await this.do(() => element.InitExternalDisplay(xml, xml.length, 0x100));
      await this.do(() => element.ShowExternalDisplay(0, 0, 15360, 11520));
    }

    /** Picks the first item up and drops it on the first target that takes it. */
    async place() {
      await this.do(() => this.press('imgSourceCover', 13));
      await this.do(() => this.press('', 39));
      await this.do(() => this.press('', 13));
    }

    async play() {
      const { element } = this;
      await this.show();
      await this.place();
      await this.do(() => this.click('#btnInstructions'));
      await this.do(() => this.click('#btnCalculator'));
      await this.do(() => (element.state = STATE));
      await this.do(() => element.ResizeExternalDisplay(0, 0, 15000, 11000));
      await this.do(() => element.GetExternalDisplayStatus());
      await this.do(() => element.ScoreExternalDisplay());
      await this.do(() => this.click('#btnReset'));
      await this.do(() => element.HideExternalDisplay());
    }
  }

  let calls = 0;
  for (let at = 1; at < 500; at += stride) {
    acted = false;
    const session = new Session(at);
    await session.play();
    if (!acted) break;
    calls = at;
    session.at = 0;
    document.body.append(session.element);
    session.element.dispose();
    await session.show();
    await session.place();
    if (session.element.responses.length !== 1) {
      failures.push(`call ${at}: the next session is not served: ${session.element.state}`);
    }
    session.element.remove();
    await turn();
  }
  return { calls, failures: failures.slice(0, 5) };
}

/** What a host may do, and at each how many of its calls. */
const ACTS = {
  dispose: 1,
  remove: 3,
  free: 1,
  initialise: 1,
  state: 1,
  resize: 3,
  hide: 3,
  score: 4,
  rescore: 4,
  answer: 4,
};

for (const [act, stride] of Object.entries(ACTS)) {
  test(`a host may ${act} in the middle of a call`, { timeout: 100_000 }, async () => {
    const { page, record } = await openExam(browser, server);
    const { calls, failures } = await page.evaluate(playAll, { act, stride });
    assert.deepEqual(failures, []);
    assert.ok(calls > 10, `${calls} calls`);
    const errors = record.errors.filter((text) => !/404|none\.png/.test(text));
    assert.deepEqual([errors, record.violations], [[], []]);
    await page.context().close();
  });
}
