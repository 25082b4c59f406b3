/**
 * What an item takes it gives back: after a thousand of them a page is as it was, and whatever goes on
 * may end when an element is disposed.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launchBrowser } from './support/browser.js';
import { Candidate } from './support/candidate.js';
import { openExam, showItem } from './support/exam.js';
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

/** For a page's init script: keeps the memories of modules, as "memories". */
function keepMemories() {
  window.memories = [];
  const keep = async (making) => {
    const { instance } = await making;
    const exported = Object.values(instance.exports);
    window.memories.push(...exported.filter((each) => each instanceof WebAssembly.Memory));
    return making;
  };
  const { instantiate, instantiateStreaming } = WebAssembly;
  WebAssembly.instantiate = (...args) => keep(instantiate(...args));
  WebAssembly.instantiateStreaming = (...args) => keep(instantiateStreaming(...args));
}

/** What a page holds after everything was collected that can be. */
async function weigh(page, input) {
  for (let times = 0; times < 3; times++) {
    await input.send('HeapProfiler.collectGarbage');
    await page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 20)));
  }
  const { metrics } = await input.send('Performance.getMetrics');
  const metric = (name) => metrics.find((each) => each.name === name).value;
  return {
    heap: metric('JSHeapUsedSize'),
    nodes: metric('Nodes'),
    listeners: metric('JSEventListeners'),
    memory: await page.evaluate(() => window.memories.map(({ buffer }) => buffer.byteLength)),
    timers: await page.evaluate(() => window.timersRunning),
  };
}

/** Runs in the page: shows items in elements of their own, with all their windows, which go again. */
async function showInElements(count) {
  for (let i = 0; i < count; i++) {
    const element = document.createElement('zav-drag-drop');
    element.setAttribute('options', 'calculator');
    element.setAttribute('src', i % 2 ? '/items/heart/' : '/items/ledger/');
    document.body.append(element);
    await element.ready;
    element.state = '<State><Responses><Response>A1</Response></Responses></State>';
    const footer = element.shadowRoot.querySelector('#brwButtons').shadowRoot;
    for (const id of ['btnCalculator', 'btnInstructions', 'btnReset']) {
      footer.querySelector(`#${id}`).click();
    }
    element.remove();
  }
}

/** Runs in the page: shows items in one element, one after the other. */
async function showInOneElement(count) {
  const host = new window.ExamHost();
  for (let i = 0; i < count; i++) {
    await host.initialise('/items/circuit/', 0);
    host.show();
    host.takeEvents();
  }
  host.element.remove();
}

test('a thousand items leave nothing behind', async () => {
  const { page, record } = await openExam(browser, server);
  await page.addInitScript(keepMemories);
  await page.reload();
  const input = await page.context().newCDPSession(page);
  await input.send('Performance.enable');
  const show = async (count) => {
    await page.evaluate(showInElements, count);
    await page.evaluate(showInOneElement, count);
    return weigh(page, input);
  };
  const { heap: heapBefore, ...before } = await show(50);
  const { heap: heapAfter, ...after } = await show(500);
  assert.equal(before.memory.length, 1);
  assert.deepEqual(after, before);
  const perItem = (heapAfter - heapBefore) / 1000;
  assert.ok(perItem < 400, `${perItem} bytes stay of each item`);
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});

/** @type {{why: string, item?: string, begin: (seat: any) => Promise<unknown>, later?: (seat: any) => Promise<unknown>}[]} */
const ENDINGS = [
  { why: 'when nothing happens', begin: async () => {} },
  {
    why: 'in mid-drag',
    begin: async ({ candidate }) => {
      await candidate.press('source 9');
      await candidate.moveTo('target 1');
    },
    later: async ({ page }) => {
      await page.mouse.move(300, 300);
      await page.mouse.up();
    },
  },
  {
    why: 'while a bar is dragged',
    begin: async ({ candidate, page }) => {
      await candidate.press('level bar');
      await page.mouse.move(300, 200);
    },
    later: ({ page }) => page.mouse.up(),
  },
  {
    why: 'while an item glides home',
    begin: ({ candidate }) => candidate.drag('source 9').to('nowhere'),
  },
  {
    why: 'while the hint of a placed item fades',
    begin: async ({ candidate }) => {
      await candidate.drag('source 9').to('target 1');
      await candidate.drag('source 6').to('target 1');
    },
  },
  {
    why: 'while prompts to scroll flash',
    item: 'elements',
    begin: async ({ element, candidate }) => {
      await element.evaluate((each) => each.GetExternalDisplayStatus());
      await candidate.answer('OK');
    },
  },
  {
    why: 'while a key carries an item',
    begin: async ({ candidate }) => {
      await candidate.focus('source 9');
      for (const key of ['Enter', 'Right']) await candidate.key(key);
    },
    later: ({ candidate }) => candidate.key('Enter'),
  },
  {
    why: 'while the element asks',
    begin: async ({ candidate }) => {
      await candidate.drag('source 9').to('target 1');
      await candidate.click('reset');
    },
    later: ({ candidate }) => candidate.key('Enter'),
  },
  {
    why: 'while the page is asked',
    begin: async ({ host, candidate }) => {
      await host.evaluate((each) => {
        const answer = new Promise((resolve) => {
          each.answerNow = () => resolve(1);
        });
        each.element.parent = { ShowMessage: () => answer };
      });
      await candidate.click('reset');
    },
    later: ({ host }) => host.evaluate((each) => each.answerNow()),
  },
  {
    why: 'with its windows open',
    begin: async ({ candidate }) => {
      await candidate.click('calculator');
      await candidate.click('instructions');
    },
  },
  {
    why: 'while another item is fetched',
    begin: async ({ element }) => {
      await element.evaluate((each) => {
        each.setAttribute('src', '/items/elements/');
      });
    },
  },
  {
    why: 'while another item is initialised',
    begin: ({ host }) =>
      host.evaluate(async (each) => {
        const text = await (await fetch('/items/heart/item.xml')).text();
        // The page has none of the pictures under these names, and waits for them.
        each.element.support = {
          GetLocalizePath: () => '/items/heart/KVStatic.xml',
          GetGraphicsPath: (name) => `/items/heart/graphics/${name}?${performance.now()}`,
          GetSupportFileDir: () => 'zav-support:/',
        };
        const item = window.ExamHost.toBytes(text);
        each.pending = each.element.InitExternalDisplay(item, item.length, 0);
      }),
    later: async ({ host }) => assert.equal(await host.evaluate((each) => each.pending), false),
  },
];

/** @type {Record<string, (element: any) => void>} both run in the page */
const WAYS = {
  disposed: (element) => element.dispose(),
  removed: (element) => element.remove(),
};

test('an element may go at any time, and come again', async (t) => {
  const { page, record } = await openExam(browser, server);
  for (const { why, item = 'heart', begin, later } of ENDINGS) {
    for (const [way, end] of Object.entries(WAYS)) {
      await t.test(`${way} ${why}`, async () => {
        const seat = { page, ...(await showItem(page, item)) };
        const { element, host } = seat;
        try {
          await begin(seat);
          await element.evaluate(end);
          await later?.(seat);
          assert.deepEqual(await element.evaluate(whatIsLeft), NOTHING);
          await host.evaluate((each) => each.showFolder('/items/heart/', 'calculator'));
          const candidate = await Candidate.of(page, element, '/items/heart/item.xml');
          await candidate.drag('source 9').to('target 1');
          assert.deepEqual(await candidate.responses(), ['A1']);
        } finally {
          await element.evaluate((each) => each.remove());
        }
      });
    }
  }
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});

const NOTHING = { parts: 0, responses: [], state: '', window: 0, timers: 0 };

/** Runs in the page: what an element still holds; puts it into the page again. */
async function whatIsLeft(element) {
  await new Promise((resolve) => setTimeout(resolve, 30));
  const left = {
    parts: element.shadowRoot.childElementCount,
    responses: element.responses,
    state: element.state,
    window: element.hwnd(),
    timers: window.timersRunning,
  };
  element.parent = undefined;
  element.removeAttribute('src');
  document.body.append(element);
  return left;
}

test('an element that is moved in its page keeps its item, unless it gets another', async () => {
  const { page, record } = await openExam(browser, server);
  const { element, candidate } = await showItem(page);
  await candidate.drag('source 9').to('target 1');
  await element.evaluate((each) => {
    const frame = document.createElement('main');
    frame.style.padding = '20px';
    document.body.append(frame);
    frame.append(each);
  });
  await candidate.drag('target 1').to('target 2');
  assert.deepEqual(await candidate.responses(), ['B1']);
  const answers = await element.evaluate(async (each) => {
    each.remove();
    each.setAttribute('src', '/items/circuit/');
    document.body.append(each);
    await each.ready;
    return each.responses;
  });
  assert.deepEqual(answers, []);
  assert.deepEqual([record.errors, record.violations], [[], []]);
  await page.context().close();
});

test('of sources that follow each other fast the last one is shown', async () => {
  const { page, record } = await openExam(browser, server);
  const { element } = await showItem(page);
  for (const items of ['circuit elements', 'elements circuit heart', 'heart nothing ledger']) {
    const count = await element.evaluate(async (each, names) => {
      for (const name of names.split(' ')) {
        each.setAttribute('src', `/items/${name}/`);
        await new Promise((resolve) => setTimeout(resolve, 15));
      }
      await each.ready;
      return each.shadowRoot.querySelectorAll('.control[id^=imgTargetCover]').length;
    }, items);
    const targets = { elements: 40, heart: 6, ledger: 12 };
    assert.equal(count, targets[items.split(' ').at(-1)], items);
  }
  const others = record.errors.filter((told) => !/404/.test(told));
  assert.deepEqual([others, record.violations], [[], []]);
  await page.context().close();
});

test('an item comes up with a module that first could not be had', async () => {
  const { page } = await openExam(browser, server);
  const rows = [
    { why: 'not there', answer: { status: 404 }, said: /answered with 404/ },
    { why: 'no connection', answer: null, said: /fetch/ },
    {
      why: 'no module',
      answer: { body: 'no', contentType: 'application/wasm' },
      said: /CompileError/,
    },
  ];
  const load = () =>
    page.evaluate(() =>
      customElements
        .get('zav-drag-drop')
        .prepare()
        .then(
          () => 'loaded',
          (error) => String(error),
        ),
    );
  for (const { why, answer, said } of rows) {
    await page.route('**/*.wasm', (route) => (answer ? route.fulfill(answer) : route.abort()));
    assert.match(await load(), said, why);
    await page.unroute('**/*.wasm');
  }
  await page.route('**/*.wasm', async (route) =>
    route.fulfill({ response: await route.fetch(), contentType: 'text/plain' }),
  );
  assert.equal(await load(), 'loaded', 'from a server that does not know the media type');
  await showItem(page);
  await page.context().close();
});
