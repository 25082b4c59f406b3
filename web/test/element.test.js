/**
 * The element as pages use it: its members, attributes, events and host objects, what becomes of
 * items that lack something, and the package as npm installs it.
 */

import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';

import { launchBrowser, openPage } from './support/browser.js';
import { Candidate } from './support/candidate.js';
import { openExam, showItem } from './support/exam.js';
import { BARE_PAGE, serveSite } from './support/site.js';

const root = fileURLToPath(new URL('../..', import.meta.url));

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {string} in which tests make what they serve under /made/ */
let folder;

before(async () => {
  folder = await mkdtemp(join(tmpdir(), 'zavdragdrop-'));
  server = await serveSite({ '/made/': folder }, { '/bare': BARE_PAGE });
  browser = await launchBrowser();
});

after(async () => {
  await browser?.close();
  await server?.close();
  await rm(folder, { recursive: true });
});

/**
 * @param {(page: import('playwright-core').Page) => Promise<void>} use
 * @param {string[]} [errors] that the console may tell of
 */
async function atExam(use, errors = []) {
  const { page, record } = await openExam(browser, server);
  try {
    await use(page);
    const unexpected = record.errors.filter((told) => !errors.some((each) => told.includes(each)));
    assert.deepEqual([unexpected, record.violations], [[], []]);
  } finally {
    await page.context().close();
  }
}

test('importing the class registers nothing; another name can be given to it', async () => {
  const { page, record } = await openPage(browser, `${server.origin}/bare`);
  const found = await page.evaluate(async () => {
    const { ZavDragDropElement } = await import('/package/ZavDragDropElement.js');
    const registered = Boolean(customElements.get('zav-drag-drop'));
    customElements.define('own-name', class extends ZavDragDropElement {});
    const element = document.createElement('own-name');
    element.setAttribute('src', '/items/heart/');
    document.body.append(element);
    await element.ready;
    element.state = '<State><Responses><Response>A1</Response></Responses></State>';
    await import('/package/zav-drag-drop.js');
    const isSame = customElements.get('zav-drag-drop') === ZavDragDropElement;
    return [registered, element.responses, isSame];
  });
  assert.deepEqual(found, [false, ['A1'], true]);
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});

/** Runs in the page: drives an item in a case through all members, and lists what they gave. */
async function driveAllMembers() {
  const element = document.body.appendChild(document.createElement('zav-drag-drop'));
  const objects = new window.HostObjects(element, '/items/ledger/');
  const bytes = (text) => window.ExamHost.toBytes(text);
  const text = (array) => window.ExamHost.toText(array);
  const given = [];
  const call = (member, ...args) => {
    const value = element[member](...args);
    given.push([member, value]);
    return value;
  };
  call('hwnd');
  call('SetParentWnd', 7);
  element.SetParentWnd(undefined);
  objects.connect();
  const item = bytes(await (await fetch('/items/ledger/item.xml')).text());
  given.push(['InitExternalDisplay', await element.InitExternalDisplay(item, item.length, 0)]);
  call('SetParentWnd', element.hostWindow);
  call('ShowExternalDisplay', 0, 0, 15360, 11520);
  given.push(['hwnd', element.hwnd() > 0]);
  call('ResizeExternalDisplay', 150, 300, 15000, 10500);
  call('GetExternalDisplayStatus');
  const state = '<State><Responses><Response>A1</Response></Responses></State>';
  call('SetExternalStateArray', bytes(state), 2 * state.length);
  const size = element.GetExternalStateBytes();
  const { arState } = element.GetExternalStateArray(size);
  given.push(['GetExternalStateBytes', size === arState.length]);
  given.push(['GetExternalStateArray', text(arState).replace(/\0+$/, '') === element.state]);
  for (const type of [0, 1]) {
    const { result, bIsASCII } = element.GetResponseBytes(type);
    const record = element.GetResponse(type, result);
    given.push(['GetResponseBytes', record.arResponse.length === result, bIsASCII]);
    given.push(['GetResponse', { ...record, arResponse: text(record.arResponse).slice(0, 40) }]);
  }
  call('GetScoreInfo');
  call('ScoreExternalDisplay');
  call('RescoreExternalDisplay', bytes('B2'), 4);
  given.push(['responses', element.responses]);
  const quick = bytes('<Responses><Response>C3</Response></Responses>');
  call('RescoreExternalDisplayQuick', quick, quick.length);
  given.push(['responses', element.responses]);
  const form = element.shadowRoot.querySelector('#frmMain').getBoundingClientRect();
  given.push(['place', [form.left, form.top, form.width, form.height]]);
  call('HideExternalDisplay');
  call('hwnd');
  call('FreeExternalDisplay');
  const first = new Map();
  for (const { member, args } of objects.calls) {
    const shown = args.map((each) => (each instanceof Uint8Array ? 'bytes' : each));
    if (!first.has(member)) first.set(member, shown);
  }
  const [caseFile, , , support] = objects.calls.find((each) => /InitCase/.test(each.member)).args;
  first.get('case.InitCaseStudy')[3] = support === element.support ? 'support' : 'another object';
  given.push(['case', new TextDecoder().decode(caseFile).slice(0, 38)]);
  return { given, called: [...first] };
}

const SCORED = { nCorrect: 1, nIncorrect: 0, nNotAttempted: 0, nNotScored: 0, fRawScore: 7.5 };

test('a page drives an item through its members, and is called back', () =>
  atExam(async (page) => {
    const { given, called } = await page.evaluate(driveAllMembers);
    assert.deepEqual(given, [
      ['hwnd', 0],
      ['SetParentWnd', 7],
      ['InitExternalDisplay', true],
      ['SetParentWnd', 1],
      ['ShowExternalDisplay', true],
      ['hwnd', true],
      ['ResizeExternalDisplay', true],
      ['GetExternalDisplayStatus', { lDispState: 2, bViewedAll: true, sStateMsg: 'Read the case' }],
      ['SetExternalStateArray', undefined],
      ['GetExternalStateBytes', true],
      ['GetExternalStateArray', true],
      ['GetResponseBytes', true, true],
      ['GetResponse', { result: true, arResponse: '<Answers><Answer Expression="A1 AND B5" ' }],
      ['GetResponseBytes', true, true],
      ['GetResponse', { result: true, arResponse: '<Visited><cmdShowQuestion/></Visited><It' }],
      ['GetScoreInfo', { result: true, nItems: 1, fMaxScore: 12.25, fMinScore: -3 }],
      ['ScoreExternalDisplay', { result: true, ...SCORED }],
      ['RescoreExternalDisplay', { result: true, ...SCORED }],
      ['responses', ['B2']],
      ['RescoreExternalDisplayQuick', { result: true, ...SCORED }],
      ['responses', ['C3']],
      ['place', [10 + 200, 20, 1000 - 200, 700]],
      ['HideExternalDisplay', true],
      ['hwnd', 0],
      ['FreeExternalDisplay', true],
      ['case', '<?xml version="1.0" encoding="UTF-8"?>'],
    ]);
    assert.deepEqual(called, [
      ['support.GetLocalizePath', ['KVStatic.xml']],
      ['support.GetGraphicsPath', ['journal.png']],
      ['parent.GetGraphicsPath', ['journal.png']],
      ['support.GetSupportFileDir', ['']],
      ['case', []],
      ['case.DisplayInt_SetParentWnd', [1]],
      ['case.InitCaseStudy', ['bytes', 1939, 0, 'support', 'Question']],
      ['case.getCaseParent', []],
      ['case.DisplayInt_ShowExternalDisplay', [0, 0, 15360, 11520]],
      ['case.QuestionSize', [0, 0, 15360, 11520]],
      ['case.DisplayInt_ResizeExternalDisplay', [150, 300, 15000, 10500]],
      ['case.DisplayInt_GetExternalDisplayStatus', [0, false, '']],
      ['engine', []],
      ['engine.Document', []],
      ['engine.Document=', ['function']],
      ['engine.MaxScore', [undefined]],
      ['engine.MinScore', [undefined]],
      ['engine.CalculateScore', [undefined]],
      ['case.DisplayInt_HideExternalDisplay', []],
      ['case.DisplayInt_FreeExternalDisplay', []],
    ]);
  }));

test('members that fail throw with a number, and before initialisation with a reason', () =>
  atExam(async (page) => {
    const told = await page.evaluate(async () => {
      const element = document.body.appendChild(document.createElement('zav-drag-drop'));
      const attempt = async (act) => {
        try {
          return await act();
        } catch (error) {
          return [error instanceof Error, error.number, error.source, error.message];
        }
      };
      const early = await attempt(() => element.ShowExternalDisplay(0, 0, 1, 1));
      const item = window.ExamHost.toBytes('<DragAndDropItem/>');
      const unsupported = await attempt(() => element.InitExternalDisplay(item, item.length, 0));
      const formless = await attempt(() => element.GetExternalDisplayStatus());
      return [early, unsupported, formless];
    });
    assert.deepEqual(told, [
      [true, undefined, undefined, 'ShowExternalDisplay: the item is not initialised'],
      false,
      [true, 91, '', 'Object variable not set'],
    ]);
  }));

/** Members of host objects ("case" makes one), by who hears of their failure: the log or the caller. */
const LOGGED = [
  'parent.ShowMessage',
  'parent.GetGraphicsPath',
  'support.GetLocalizePath',
  'support.GetGraphicsPath',
  'support.GetSupportFileDir',
  'engine.CalculateScore',
  'case',
  'case.DisplayInt_SetParentWnd',
  'case.InitCaseStudy',
  'case.getCaseParent',
  'case.QuestionSize',
  'case.DisplayInt_ShowExternalDisplay',
  'case.DisplayInt_ResizeExternalDisplay',
  'case.DisplayInt_HideExternalDisplay',
];
const THROWN = [
  'engine',
  'engine.Document',
  'engine.Document=',
  'engine.MaxScore',
  'engine.MinScore',
  'case.DisplayInt_GetExternalDisplayStatus',
  'case.DisplayInt_FreeExternalDisplay',
];

/** What is reported of a member that fails. */
function reportOf(member) {
  if (member === 'parent.ShowMessage') {
    const text = 'Message Function not available';
    return { number: -2147221494, source: 'ZavDragDrop', text };
  }
  const source = LOGGED.includes(member) ? 'ZavDragDrop' : 'Host';
  return { number: 1234, source, text: `${member} has failed` };
}

/** Runs in the page: an item whose host objects can be made to fail, and all that is reported. */
async function makeFragileHost() {
  const element = document.body.appendChild(document.createElement('zav-drag-drop'));
  const objects = new window.HostObjects(element, '/items/ledger/');
  const item = window.ExamHost.toBytes(await (await fetch('/items/ledger/item.xml')).text());
  const reports = [];
  element.addEventListener('zav-error-logged', ({ detail }) => {
    reports.push({ number: detail.number, source: detail.source, text: detail.description });
  });
  const attempt = async (act) => {
    try {
      await act();
    } catch ({ number, source, message }) {
      reports.push({ number, source, text: message });
    }
  };
  const start = async () => {
    await attempt(() => objects.connect());
    await attempt(() => element.InitExternalDisplay(item, item.length, 0));
    await attempt(() => element.ShowExternalDisplay(0, 0, 15360, 11520));
  };
  const end = async () => {
    await attempt(() => element.ResizeExternalDisplay(0, 0, 15000, 10500));
    await attempt(() => element.GetExternalDisplayStatus());
    await attempt(() => element.GetScoreInfo());
    const record = window.ExamHost.toBytes('A1');
    await attempt(() => element.RescoreExternalDisplay(record, record.length));
    await attempt(() => element.HideExternalDisplay());
    await attempt(() => element.FreeExternalDisplay());
  };
  return { element, objects, reports, start, end };
}

test('host objects that fail are reported, and the next item works', (t) =>
  atExam(async (page) => {
    for (const member of [...LOGGED, ...THROWN]) {
      await t.test(member, async () => {
        const host = await page.evaluateHandle(makeFragileHost);
        const element = await host.evaluateHandle((each) => each.element);
        const candidate = await Candidate.of(page, element, '/items/ledger/item.xml');
        await host.evaluate((each, failing) => {
          each.objects.failing = failing;
          return each.start();
        }, member);
        // What could not be shown cannot be clicked either.
        await candidate.click('reset').catch(() => {});
        const reports = await host.evaluate((each) => each.end().then(() => each.reports));
        assert.deepEqual(reports[0], reportOf(member));
        await host.evaluate((each) => {
          each.objects.failing = '';
          return each.start();
        });
        await candidate.drag('source 1').to('target 1');
        assert.deepEqual(await candidate.responses(), ['A1']);
        await element.evaluate((each) => each.remove());
      });
    }
  }));

test('a log that fails is the failure of the call, and the event tells of the error all the same', () =>
  atExam(async (page) => {
    const { host, element, candidate } = await showItem(page);
    const failure = await element.evaluate((each) => {
      const fail = () => {
        throw new Error('no log');
      };
      each.parent = { LogError: fail };
      try {
        each.SetExternalStateArray(window.ExamHost.toBytes('<State><broken'));
        return '';
      } catch (error) {
        return `${error.number} ${error.message}`;
      }
    });
    assert.equal(failure, '51 no log');
    const [logged] = await host.evaluate((each) => each.takeEvents());
    assert.match(logged.description, /^XML error at line 1/);
    await element.evaluate((each) => {
      each.state = '<State><Responses><Response>B2</Response></Responses></State>';
    });
    await candidate.drag('source 9').to('target 1');
    assert.deepEqual(await candidate.responses(), ['B2', 'A1']);
  }));

const OK = 1;
const CANCEL = 2;

/** What the page's ShowMessage gives to the question before a reset: at once, or as a promise. */
const ANSWERS = [
  { why: 'OK', answer: OK, responses: [] },
  { why: 'Cancel', answer: CANCEL, responses: ['A1'] },
  { why: 'a promise of OK', later: true, answer: OK, responses: [] },
  { why: 'a promise of Cancel', later: true, answer: CANCEL, responses: ['A1'] },
  { why: 'a promise that is broken', later: true, answer: 'never', responses: ['A1'] },
];

test('the page answers questions at once or later', (t) =>
  atExam(async (page) => {
    for (const { why, later, answer, responses } of ANSWERS) {
      await t.test(why, async () => {
        const { host, element, candidate } = await showItem(page);
        await candidate.drag('source 9').to('target 1');
        await host.evaluate(setAnswer, { later, answer });
        await candidate.click('reset');
        if (later) {
          assert.deepEqual(await candidate.responses(), ['A1'], 'while nothing is answered');
          await host.evaluate((each) => each.answerNow());
        }
        const told = await host.evaluate((each) => each.takeEvents());
        const of = (kind) => told.filter(({ event }) => event === kind);
        const given = of('message').map((message) => message.answer);
        assert.deepEqual(given, answer === 'never' ? [] : [answer]);
        assert.deepEqual(of('heard'), answer === OK ? [{ event: 'heard', responses }] : []);
        assert.deepEqual(of('responses'), [{ event: 'responses', responses }]);
        assert.equal(await candidate.isAsked(), false);
        await element.evaluate((each) => each.remove());
      });
    }
  }));

/** Runs in the page. */
function setAnswer(host, { later, answer }) {
  host.takeEvents();
  const promise = new Promise((resolve, reject) => {
    host.answerNow = () => (answer === 'never' ? reject(new Error('no answer')) : resolve(answer));
  });
  host.element.parent = { ShowMessage: () => (later ? promise : answer) };
}

/** Items made of the heart, each with something missing or broken. */
const BROKEN = [
  {
    why: 'no texts',
    breakIt: (at) => rm(join(at, 'KVStatic.xml')),
    want: { number: 53, routine: 'InitExternalDisplay', description: /KVStatic\.xml$/ },
    rejected: /could not be initialised$/,
  },
  {
    why: 'no background picture',
    breakIt: (at) => rm(join(at, 'graphics/heart.png')),
    want: { number: 53, routine: 'LoadWorkArea', description: /heart\.png$/ },
  },
  {
    why: 'a background that is no picture',
    breakIt: (at) => writeFile(join(at, 'graphics/heart.png'), 'no picture'),
    want: { number: 481, routine: 'LoadWorkArea', description: /heart\.png$/ },
  },
  {
    why: 'a background whose name is in another case, while the question names it rightly',
    breakIt: async (at) => {
      const file = join(at, 'item.xml');
      const xml = (await readFile(file, 'utf8')).replace('"heart.png"', '"Heart.png"');
      await writeFile(file, xml.replace('<html>', '<html><img src="heart.png">'));
    },
    want: { number: 53, routine: 'LoadWorkArea', description: /Heart\.png$/ },
  },
  {
    why: 'no picture of an empty target',
    breakIt: (at) => rm(join(at, 'graphics/name-slot.png')),
    want: { number: 53, routine: 'LoadWorkArea', description: /name-slot\.png$/ },
  },
  {
    why: 'XML that is not well-formed',
    breakIt: (at) => writeFile(join(at, 'item.xml'), '<DragAndDropItem><Labels>'),
    want: {
      number: -2147221494,
      routine: 'InitExternalDisplay',
      description: /^XML error at line 1/,
    },
    rejected: /could not be initialised$/,
  },
  {
    why: 'XML of something else',
    breakIt: (at) => writeFile(join(at, 'item.xml'), '<Item/>'),
    want: { number: -2147221494, routine: 'InitExternalDisplay', description: /DragAndDropItem/ },
    rejected: /could not be initialised$/,
  },
  {
    why: 'an item of no bytes',
    breakIt: (at) => writeFile(join(at, 'item.xml'), ''),
    rejected: /item\.xml: expected an item, got an empty file$/,
  },
  {
    why: 'a text instead of an item',
    breakIt: (at) => writeFile(join(at, 'item.xml'), 'see graphics'),
    rejected: /item\.xml: expected an item, got "see graphics"$/,
  },
  {
    why: 'the page of a server that has no item, and says that all is well',
    breakIt: (at) => writeFile(join(at, 'item.xml'), '\n<!DOCTYPE HTML><p>Not found'),
    rejected: /item\.xml: expected an item, got an HTML page$/,
  },
  {
    why: 'no item',
    breakIt: (at) => rm(join(at, 'item.xml')),
    rejected: /expected an item, got 404$/,
  },
];

test('items that lack something say what, and the next item works', (t) =>
  atExam(
    async (page) => {
      for (const { why, breakIt, want, rejected } of BROKEN) {
        await t.test(why, async () => {
          const name = why.replaceAll(/\W/g, '-');
          await cp(join(root, 'items/heart'), join(folder, name), { recursive: true });
          await breakIt(join(folder, name));
          const { host, element, problem, logged } = await showMade(page, name);
          if (rejected) assert.match(problem, rejected);
          else assert.equal(problem, '');
          assert.equal(logged.length, want ? 1 : 0);
          if (want) {
            assert.equal(logged[0].number, want.number);
            assert.equal(logged[0].routine, want.routine);
            assert.match(logged[0].description, want.description);
          }
          await host.evaluate((each) => each.showFolder('/items/heart/', ''));
          const candidate = await Candidate.of(page, element, '/items/heart/item.xml');
          await candidate.drag('source 9').to('target 1');
          assert.deepEqual(await candidate.responses(), ['A1']);
          await element.evaluate((each) => each.remove());
        });
      }
    },
    ['404', 'could not be initialised', 'expected an item'],
  ));

/** Shows an item of the test's own folder, which may fail. */
async function showMade(page, name) {
  const host = await page.evaluateHandle(() => new window.ExamHost());
  const element = await host.evaluateHandle((each) => each.element);
  const told = await host.evaluate(async (each, made) => {
    const problem = await each.showFolder(made, '').then(
      () => '',
      (error) => error.message,
    );
    return { problem, logged: each.takeEvents().filter(({ event }) => event === 'log') };
  }, `/made/${name}/`);
  return { host, element, ...told };
}

test('urls of pictures may be written in any way that a server takes', () =>
  atExam(async (page) => {
    const labels = await page.evaluate(async () => {
      const element = document.body.appendChild(document.createElement('zav-drag-drop'));
      element.support = {
        GetLocalizePath: (name) => `/items/circuit/${name}`,
        GetGraphicsPath: (name) => `/items/circuit/graphics/${name}?width=100%`,
        GetSupportFileDir: () => 'support:/',
      };
      const xml = await (await fetch('/items/circuit/item.xml')).text();
      await element.InitExternalDisplay(window.ExamHost.toBytes(xml));
      element.ShowExternalDisplay(0, 0, 15360, 11520);
      const covers = element.shadowRoot.querySelectorAll('[id^=imgSourceCover-]');
      return [...covers].slice(0, 2).map((each) => {
        each.focus();
        return each.ariaLabel;
      });
    });
    assert.deepEqual(labels, ['switch', 'lamp']);
  }));

const BUTTONS = { en: 'Reset|Instructions', fr: 'Effacer|Consignes' };

const ATTRIBUTES = [
  { attributes: {}, buttons: BUTTONS.en, drags: true },
  { attributes: { language: 'fr' }, buttons: BUTTONS.fr, drags: true },
  { attributes: { language: 'xx' }, buttons: BUTTONS.en, drags: true },
  { attributes: { options: 'calculator' }, buttons: `${BUTTONS.en}|Calculator`, drags: true },
  { attributes: { options: '256' }, buttons: `${BUTTONS.en}|Calculator`, drags: true },
  {
    attributes: { options: 'Show-Answers calculator no-such-word' },
    buttons: `${BUTTONS.en}|Calculator|Set Answers`,
    drags: true,
  },
  { attributes: { options: 'read-only' }, buttons: BUTTONS.en, drags: false },
];

test('attributes say what is shown, also when they change', () =>
  atExam(async (page) => {
    const { element, candidate } = await showItem(page, 'heart', '');
    for (const { attributes, buttons, drags } of ATTRIBUTES) {
      const why = JSON.stringify(attributes);
      await element.evaluate((each, given) => {
        for (const name of ['language', 'options']) each.removeAttribute(name);
        for (const [name, value] of Object.entries(given)) each.setAttribute(name, value);
        each.setAttribute('src', '/items/heart');
        return each.ready;
      }, attributes);
      const shown = await element.evaluate((each) =>
        [...each.shadowRoot.querySelector('#brwButtons').shadowRoot.querySelectorAll('button')]
          .map((button) => button.textContent.trim())
          .join('|'),
      );
      assert.equal(shown, buttons, why);
      await candidate.drag('source 9').to('target 1');
      assert.deepEqual(await candidate.responses(), drags ? ['A1'] : [], why);
    }
  }));

test('events tell the document what the candidate did, and nothing of what the host did', () =>
  atExam(async (page) => {
    await page.evaluate(() => {
      window.told = [];
      for (const type of ['responses-changed', 'state-changed', 'viewed-all', 'error-logged']) {
        document.addEventListener(`zav-${type}`, (event) => {
          const { bubbles, composed, detail } = event;
          const kinds = [event instanceof CustomEvent, bubbles, composed];
          window.told.push([type, kinds, detail, event.target.localName]);
        });
      }
    });
    const take = () => page.evaluate(() => window.told.splice(0));
    const { host, element, candidate } = await showItem(page, 'elements');
    assert.deepEqual(await take(), [], 'loading and showing');
    const state = () => element.evaluate((each) => each.state);
    const event = (type, detail) => [type, [true, true, true], detail, 'zav-drag-drop'];
    const changed = async (...responses) => [
      event('responses-changed', { responses }),
      event('state-changed', { state: await state() }),
    ];
    await candidate.drag('source 3').to('target 1');
    assert.deepEqual(await take(), await changed('A3'));
    await candidate.drag('source 12').to('target 1');
    assert.deepEqual(await take(), [], 'an item that does not fit');
    await candidate.wait(3000);

    await host.evaluate((each) => {
      each.setState('<State><Responses><Response>B2</Response></Responses></State>');
      each.element.state = each.element.state;
      each.rescore('A1, B2');
      each.hide();
      each.show();
      each.resize(900, 700);
      each.resize(1024, 768);
    });
    assert.deepEqual(await take(), [], 'what the host does');
    await candidate.delete('target 2');
    assert.deepEqual(await take(), await changed('A1'));

    for (const area of ['stem', 'source-area', 'work-area']) await candidate.scroll(area, 9e4, 9e4);
    await page.waitForFunction(() => window.told.some(([type]) => type === 'viewed-all'));
    const types = (await take()).map(([type]) => type);
    assert.deepEqual(types.at(-1), 'viewed-all');
    assert.ok(!types.includes('responses-changed'));
    for (const area of ['source-area', 'work-area']) await candidate.scroll(area, -9e4, -9e4);
    assert.deepEqual(await take(), [], 'seen once, seen for good');

    await host.evaluate((each) => each.setState('<State><broken'));
    const [error] = (await take()).filter(([type]) => type === 'error-logged');
    assert.deepEqual(Object.keys(error[2]), [
      'number',
      'description',
      'source',
      'extra',
      'routine',
      'line',
    ]);
  }));

test('a state goes from one element into another', () =>
  atExam(async (page) => {
    await page.setViewportSize({ width: 1100, height: 1600 });
    const first = await showItem(page);
    const second = await showItem(page);
    await first.candidate.drag('source 9').to('target 1');
    await first.candidate.drag('source 2').to('target 6');
    const state = await first.element.evaluate((each) => each.state);
    await second.element.evaluate((each, given) => {
      each.state = given;
    }, state);
    const score = ({ host }) =>
      host.evaluate((each) => [each.element.responses, each.element.ScoreExternalDisplay()]);
    assert.deepEqual(await score(second), await score(first));
    await second.candidate.drag('target 6').to('target 5');
    assert.deepEqual(await second.candidate.responses(), ['A1', 'E5']);
    assert.deepEqual(await first.candidate.responses(), ['A1', 'F5']);
  }));

const ANSWERED =
  '<State><Responses><Response>A1</Response></Responses><ItemStemHeight>3000</ItemStemHeight></State>';

/** @type {[why: string, state: unknown][]} */
const NO_STATES = [
  ['cut off by storage', ANSWERED.slice(0, -9)],
  ['cut off within a name', ANSWERED.slice(0, 20)],
  ['another element', '<Foo/>'],
  ['an element of another name space', '<a:State xmlns:a="b"/>'],
  ['two states', ANSWERED + ANSWERED],
  ['a state and more', `${ANSWERED}A1`],
  ['JSON', '{"responses":["A1"]}'],
  ['nothing that was stored as a text', 'undefined'],
  ['nothing', undefined],
  ['a number', 42],
  ['a page', '<!doctype html><p>Not found'],
  ['a text', '<State>A1</State>'],
  ['an unknown part', '<State><Responses/><Static/></State>'],
  ['responses that are a text', '<State><Responses>A1</Responses></State>'],
  [
    'responses that are something else',
    '<State><Responses><Answer>A1</Answer></Responses></State>',
  ],
  ['an empty response', '<State><Responses><Response/></Responses></State>'],
  [
    'a response in a response',
    '<State><Responses><Response><Response>A1</Response></Response></Responses></State>',
  ],
  ['a height that is none', '<State><Responses/><ItemStemHeight>high</ItemStemHeight></State>'],
  ['a mark that is none', '<State><Responses/><ItemStemScroll>3</ItemStemScroll></State>'],
];

test('what is no state is refused, and the item keeps the one that it has', (t) =>
  atExam(async (page) => {
    const { host, element, candidate } = await showItem(page);
    await candidate.drag('source 2').to('target 6');
    const before = await element.evaluate((each) => each.state);
    for (const [why, state] of NO_STATES) {
      await t.test(why, async () => {
        const [problem, after] = await element.evaluate((each, given) => {
          try {
            each.state = given;
          } catch (error) {
            return [error.message, each.state];
          }
          return ['', each.state];
        }, state);
        assert.match(problem, /^Expected a whole <State>…<\/State>, got ./);
        assert.equal(after, before);
      });
    }
    const told = await host.evaluate((each) => each.takeEvents());
    assert.deepEqual(
      told.filter(({ event }) => event === 'log' || event === 'message'),
      [],
    );
    await candidate.drag('source 9').to('target 1');
    assert.deepEqual(await candidate.responses(), ['F5', 'A1']);
  }));

test('a state without responses takes them', (t) =>
  atExam(async (page) => {
    const { element, candidate } = await showItem(page);
    const heightOnly = '<State><ItemStemHeight>3000</ItemStemHeight></State>';
    for (const state of ['', ' \n\0', '<State/>', heightOnly, '<State><Responses/></State>']) {
      await t.test(JSON.stringify(state), async () => {
        await element.evaluate((each, given) => {
          each.state = given;
        }, state);
        assert.deepEqual(await candidate.responses(), []);
        await candidate.drag('source 9').to('target 1');
        assert.deepEqual(await candidate.responses(), ['A1']);
      });
    }
    await element.evaluate((each, given) => {
      each.state = given;
    }, ANSWERED.slice(0, -8).concat('\n</State>\n'));
    assert.deepEqual(await candidate.responses(), ['A1']);
  }));

test('npm installs the package, and a page works with what it installed', async () => {
  const run = (...args) => promisify(execFile)('npm', args, { cwd: folder });
  const { stdout } = await run('pack', '--json', join(root, 'build/web/package'));
  const [{ filename }] = JSON.parse(stdout);
  await writeFile(join(folder, 'package.json'), '{"name":"exam","private":true}');
  await run('install', '--offline', '--no-audit', '--no-fund', `./${filename}`);
  const { page, record } = await openPage(browser, `${server.origin}/bare`);
  const responses = await page.evaluate(async () => {
    await import('/made/node_modules/zav-drag-drop/zav-drag-drop.js');
    const element = document.createElement('zav-drag-drop');
    element.setAttribute('src', '/items/circuit/');
    document.body.append(element);
    await element.ready;
    element.state = '<State><Responses><Response>A3</Response></Responses></State>';
    return element.responses;
  });
  assert.deepEqual(responses, ['A3']);
  const asked = record.requests.map((url) => new URL(url).pathname);
  assert.deepEqual(
    asked.filter((path) => path.startsWith('/package/')),
    [],
  );
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});
