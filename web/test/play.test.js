/**
 * The scripts of the samples, played in Chromium with mouse, wheel and keyboard: after every step the
 * element holds, and has told, what the program does that plays them on its own screen.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launchBrowser } from './support/browser.js';
import { Candidate } from './support/candidate.js';
import { openExam } from './support/exam.js';
import { serveSite } from './support/site.js';
import { playNatively } from './support/transcript.js';

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
 * Who shows the item: the element itself, that is given a folder and follows its box, or the page, by
 * calling its members.
 * @typedef {'element' | 'page'} Host
 */

const ANSWERS = { OK: 1, Cancel: 2 };
const OPTIONS = { 'show-answers': 0x10, calculator: 0x100 };

/** An item that is played: the page, the host in it, and who sits before it. */
class Play {
  /** @type {string[]} that the candidate gives to the next questions of the element */
  #answers = [];
  /** @type {Map<string, string>} states by the names of their files */
  #states = new Map();
  #page;
  #host;
  #hostKind;

  /**
   * @param {import('playwright-core').Page} page
   * @param {string} item
   * @param {string[]} options
   * @param {Host} hostKind
   */
  static async start(page, item, options, hostKind) {
    const folder = `/items/${item}/`;
    const host = await page.evaluateHandle(() => new window.ExamHost());
    if (hostKind === 'element') {
      await host.evaluate((h, args) => h.showFolder(...args), [folder, options.join(' ')]);
    } else {
      const sum = options.reduce((bits, option) => bits | OPTIONS[option], 0);
      await host.evaluate((h) => h.answerMessages());
      await host.evaluate((h, args) => h.initialise(...args), [folder, sum]);
    }
    const element = await host.evaluateHandle((h) => h.element);
    const candidate = await Candidate.of(page, element, `${folder}item.xml`);
    return new Play(page, host, candidate, hostKind);
  }

  constructor(page, host, candidate, hostKind) {
    this.#page = page;
    this.#host = host;
    this.#hostKind = hostKind;
    this.candidate = candidate;
  }

  /** Does what a step says, and tells what happened. @param {string} step */
  async perform(step) {
    const found = STEPS.map(([pattern, act]) => [pattern.exec(step), act]).find(([match]) => match);
    assert.ok(found, `no such step: ${step}`);
    await found[1](this, ...found[0].slice(1));
    while (await this.candidate.isAsked()) {
      await this.candidate.answer(this.#answers.shift() ?? 'OK');
    }
    return this.tell('takeEvents');
  }

  /** Calls a member of the host. */
  tell(member, ...args) {
    return this.#host.evaluate((host, call) => host[call.member](...call.args), { member, args });
  }

  show() {
    return this.#hostKind === 'page' && this.tell('show');
  }

  async resize(width, height) {
    await this.tell(this.#hostKind === 'page' ? 'resize' : 'resizeBox', +width, +height);
    await this.#page.waitForFunction(
      ([host, size]) => host.element.shadowRoot.querySelector('.form').style.width === size,
      [this.#host, `${width}px`],
    );
  }

  answer(answer) {
    if (this.#hostKind === 'element') this.#answers.push(answer);
    else return this.#host.evaluate((host, given) => host.answers.push(given), ANSWERS[answer]);
  }

  async saveState(file) {
    this.#states.set(file, await this.tell('state'));
  }

  loadState(file) {
    return this.tell('setState', this.#states.get(file));
  }

  async noteState() {
    await this.tell('note', 'state', { text: await this.tell('state') });
  }
}

const FAR = 100_000;

/** @type {[pattern: RegExp, act: (play: Play, ...words: string[]) => unknown][]} */
const STEPS = [
  [/^drag (.+) to (.+)$/, ({ candidate }, from, to) => candidate.drag(from).to(to)],
  [/^press (.+)$/, ({ candidate }, place) => candidate.press(place)],
  [/^move to (.+)$/, ({ candidate }, place) => candidate.moveTo(place)],
  [/^release$/, ({ candidate }) => candidate.release()],
  [/^click (.+)$/, ({ candidate }, place) => candidate.click(place)],
  [/^focus (.+)$/, ({ candidate }, place) => candidate.focus(place)],
  [/^delete (.+)$/, ({ candidate }, place) => candidate.delete(place)],
  [/^key (\w+)$/, ({ candidate }, name) => candidate.key(name)],
  [/^scroll (\S+) to end$/, ({ candidate }, area) => candidate.scroll(area, FAR, FAR)],
  [/^scroll (\S+) to start$/, ({ candidate }, area) => candidate.scroll(area, -FAR, -FAR)],
  [
    /^scroll (\S+) by (-?\d+) ?(-?\d*)$/,
    ({ candidate }, area, down, across) => candidate.scroll(area, +down, +across),
  ],
  [/^splitter (\S+) to (\d+)$/, ({ candidate }, pane, size) => candidate.splitter(pane, +size)],
  [/^close-window$/, ({ candidate }) => candidate.closeWindow()],
  [/^wait (\d+)$/, ({ candidate }, time) => candidate.wait(+time)],
  [/^show$/, (play) => play.show()],
  [/^resize (\d+) (\d+)$/, (play, width, height) => play.resize(width, height)],
  [/^answer (\w+)$/, (play, answer) => play.answer(answer)],
  [/^state$/, (play) => play.noteState()],
  [/^save-state (\S+)$/, (play, file) => play.saveState(file)],
  [/^load-state (\S+)$/, (play, file) => play.loadState(file)],
  [/^rescore (.+)$/, (play, record) => play.tell('rescore', record)],
  [/^(hide|status|responses|key|score)$/, (play, member) => play.tell(member)],
];

/** @param {string} state */
const responsesIn = (state) => [...state.matchAll(/<Response>(.*?)<\/Response>/g)].map((m) => m[1]);

/**
 * Of a state only the responses are compared, as sizes of panes rest on the widths of letters. A
 * message that the candidate answers comes after what else the step gave.
 */
function comparable(events) {
  const isMessage = ({ event }) => event === 'message';
  const told = events.map((each) =>
    each.event === 'state' ? { event: 'state', responses: responsesIn(each.text) } : each,
  );
  return [...told.filter(isMessage), ...told.filter((each) => !isMessage(each))];
}

const HOST_STEP =
  /^(show|hide|resize|wait|answer|state|status|responses$|key$|score|\S+-state|rescore)\b/;

/** What zav-responses-changed must have told in a step. */
function expectHeard(text, before, now) {
  const isChange = before.join() !== now.join();
  return isChange && !HOST_STEP.test(text) ? [{ event: 'heard', responses: now }] : [];
}

const EVERYTHING = ['show-answers', 'calculator'];

/** @type {{item: string, script: string, options: string[], host: Host}[]} */
const PLAYS = [
  { item: 'heart', script: 'play.txt', options: [], host: 'element' },
  { item: 'circuit', script: 'play.txt', options: [], host: 'page' },
  { item: 'elements', script: 'play.txt', options: [], host: 'element' },
  { item: 'ledger', script: 'play.txt', options: [], host: 'page' },
  { item: 'heart', script: 'everything.txt', options: EVERYTHING, host: 'page' },
  { item: 'circuit', script: 'everything.txt', options: EVERYTHING, host: 'element' },
  { item: 'elements', script: 'everything.txt', options: EVERYTHING, host: 'page' },
  { item: 'ledger', script: 'everything.txt', options: EVERYTHING, host: 'element' },
];

for (const { item, script, options, host } of PLAYS) {
  test(`${item}, ${script}, the ${host} being its host`, async () => {
    const flags = options.map((option) => `--${option}`);
    const steps = await playNatively(item, script, flags);
    const viewport = { width: 1920, height: 1080 };
    const { page, record } = await openExam(browser, server, { viewport });
    const play = await Play.start(page, item, options, host);
    let before = [];
    for (const { line, text, events } of steps) {
      const where = `line ${line}: ${text}`;
      const told = await play.perform(text).catch((error) => {
        throw new Error(`${where}: ${error.message}`);
      });
      const now = events.at(-1).responses;
      const wanted = [...expectHeard(text, before, now), ...comparable(events)];
      const heard = told.filter(({ event }) => event === 'heard');
      const rest = comparable(told.filter(({ event }) => event !== 'heard'));
      assert.deepEqual([...heard, ...rest], wanted, where);
      before = now;
    }
    assert.deepEqual([record.errors, record.violations], [[], []]);
    await page.context().close();
  });
}
