/**
 * Pages of authors in a pane, in a real browser: what is hostile does nothing, what an author means
 * is shown.
 */

import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { launchBrowser, openPage } from './support/browser.js';
import { HOSTILE } from './support/hostile.js';
import { serveModules } from './support/modules.js';

/** @type {import('./support/server.js').TestServer} */
let server;
/** @type {import('playwright-core').Browser} */
let browser;
/** @type {import('playwright-core').Page} */
let page;
/** @type {import('./support/browser.js').PageRecord} */
let record;

before(async () => {
  const graphics = fileURLToPath(new URL('../../items/heart/graphics', import.meta.url));
  server = await serveModules({ '/graphics/': graphics });
  browser = await launchBrowser();
  ({ page, record } = await openPage(browser, `${server.origin}/`));
  await page.evaluate(preparePane);
});

after(async () => {
  await browser.close();
  await server.close();
});

/** Runs in the page: makes show(html), which puts a page into a new pane and returns its root. */
async function preparePane() {
  const { filterPage } = await import('/src/dom/HtmlFilter.js');
  const urls = new Map([['heart.png', '/graphics/heart.png']]);
  let host = document.createElement('div');
  window.show = (html) => {
    host.remove();
    host = document.createElement('div');
    host.id = 'pane';
    Object.assign(host.style, {
      position: 'absolute',
      left: '0',
      top: '0',
      width: '300px',
      height: '150px',
      contain: 'strict',
      overflow: 'hidden',
      isolation: 'isolate',
    });
    const root = host.attachShadow({ mode: 'open' });
    const { content, sheet } = filterPage(html, (name) => urls.get(name) ?? null);
    if (sheet) root.adoptedStyleSheets = [sheet];
    root.append(content);
    document.body.append(host);
    return root;
  };
}

test('hostile pages neither run, nor fetch, nor report, nor reach out', async (t) => {
  const requestsBefore = record.requests.length;
  for (const [why, html] of HOSTILE) {
    await t.test(why, async () => {
      record.requests.length = requestsBefore;
      record.violations.length = 0;
      record.errors.length = 0;
      assert.deepEqual(await page.evaluate(provoke, html), []);
      const asked = record.requests.slice(requestsBefore).map((url) => new URL(url).pathname);
      assert.deepEqual(
        asked.filter((path) => path !== '/graphics/heart.png'),
        [],
      );
      assert.deepEqual(record.violations, []);
      assert.deepEqual(record.errors, []);
    });
  }
});

/**
 * Runs in the page: shows a page, does to it what a user could do, and lists what should not be.
 * @param {string} html
 */
async function provoke(html) {
  const FORBIDDEN_ELEMENTS =
    'script,style,link,meta,base,title,a,area,iframe,frame,frameset,object,embed,applet,form,input,' +
    'textarea,select,svg,math,template,slot,video,audio,source,marquee,details,zav-drag-drop,image';
  const FORBIDDEN_ATTRIBUTES = new RegExp(
    '^(on|data-|href|src|action|form|target|name$|slot|part|is$|ping|popover|autofocus|tabindex|' +
      'accesskey|contenteditable|usemap|lowsrc|background$)',
  );
  const USUAL = {
    'animation-name': 'none',
    'background-image': 'none',
    'box-shadow': 'none',
    content: 'normal',
    filter: 'none',
    'list-style-image': 'none',
    transform: 'none',
    'transition-duration': '0s',
    'will-change': 'auto',
  };
  const wrong = [];
  const root = window.show(html);
  const elements = root.querySelectorAll('*');
  for (const element of elements) {
    element.click();
    element.focus();
    element.dispatchEvent(new MouseEvent('mouseover', { bubbles: true }));
  }
  await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 5)));
  if ('__ran' in window) wrong.push('something ran');
  delete window.__ran;

  for (const element of elements) {
    if (element.matches(FORBIDDEN_ELEMENTS)) wrong.push(element.outerHTML);
    for (const { name, value } of element.attributes) {
      if (name === 'src' && value === `${location.origin}/graphics/heart.png`) continue;
      if (FORBIDDEN_ATTRIBUTES.test(name)) wrong.push(`${name}="${value}"`);
      if (name === 'style' && /url\(|\\/.test(value)) wrong.push(value);
    }
    const style = getComputedStyle(element);
    if (/fixed|sticky/.test(style.position)) wrong.push(`position: ${style.position}`);
    for (const [name, usual] of Object.entries(USUAL)) {
      const value = style.getPropertyValue(name);
      if (value !== usual) wrong.push(`${name}: ${value}`);
    }
  }
  for (const rule of root.adoptedStyleSheets.flatMap((sheet) => [...sheet.cssRules])) {
    if (/url\(|\\|@|:host|:root|::|\[/.test(rule.cssText)) wrong.push(rule.cssText);
  }
  const pane = root.host.getBoundingClientRect();
  if (pane.width !== 300 || pane.height !== 150) wrong.push('the pane changed');
  if (document.body.childElementCount !== 1) wrong.push('the document changed');
  const beside = document.elementFromPoint(310, 100);
  if (beside !== document.documentElement) wrong.push('something stands beside the pane');
  return wrong;
}

const CHROME_PAGE = `<HTML>\r
<HEAD>\r
<STYLE>\r
.Background{#99ccff}\r
.TitleRow{HEIGHT: 27px;}\r
.TitleCell{BACKGROUND-IMAGE:url(heart.png); BACKGROUND-REPEAT:repeat-x; PADDING-LEFT:10px; COLOR:white; overflow:hidden;}\r
.Title{FONT-FAMILY:'verdana';FONT-SIZE:10pt;}\r
</STYLE>\r
</HEAD>\r
<BODY style="MARGIN:0px;" class="Background">\r
<TABLE cellspacing=0 cellpadding=0 border=0 width=100%>\r
<TR class="TitleRow">\r
<TD id="WorkHeading" class="TitleCell"><SPAN class="Title">Heading</SPAN></TD>\r
<TD class="FooterCell" valign=middle>&nbsp;<Button id="btnReset" class="Button">Reset</Button></TD>\r
</TR>\r
</TABLE>\r
</BODY>\r
</HTML>\r
`;

const PICTURE = 'url("/graphics/heart.png")';
const RED = 'color: rgb(255, 0, 0)';

/**
 * What is to be found at a selector: computed styles, attributes behind an "@", and the text.
 * @type {[why: string, html: string, at: string, ...found: string[]][]}
 */
// prettier-ignore
const KEPT = [
  ['a generated page: its cells', CHROME_PAGE, '#WorkHeading',
    `background-image: ${PICTURE}`, 'background-repeat: repeat-x', 'padding-left: 10px',
    'color: rgb(255, 255, 255)', 'overflow: hidden', 'height: 27px'],
  ['a generated page: its letters', CHROME_PAGE, '.Title',
    'text: Heading', 'font-family: verdana, sans-serif', 'font-size: 13.3333px'],
  ['a generated page: its body', CHROME_PAGE, '.body.Background', 'margin: 0px'],
  ['a generated page: its buttons', CHROME_PAGE, 'button#btnReset.Button', 'text: Reset'],
  ['fonts', '<html><font face="verdana" size="4" color="#336699"><b>x</b></font></html>', 'b',
    'text: x', 'font-family: verdana, sans-serif', 'font-size: 18px', 'color: rgb(51, 102, 153)'],
  ['tables', '<table cellpadding=4><td width=40 valign=top nowrap colspan=2>x', 'td',
    '@colspan: 2', 'vertical-align: top', 'width: 40px', 'padding: 4px', 'white-space: nowrap'],
  ['lists', '<ol type=a start=3><li>x<li>y</ol>', 'ol', '@start: 3', 'list-style-type: lower-alpha'],
  ['lists with pictures', '<style>LI{LIST-STYLE-IMAGE:url(heart.png)}</style><ul><li>x</ul>', 'li',
    `list-style-image: ${PICTURE}`],
  ['directions', '<body dir=rtl lang=he><p>x', 'p', 'direction: rtl'],
  ['a picture', '<img src="heart.png" width=20 alt="A heart" hspace=3>', 'img',
    '@alt: A heart', '@draggable: false', 'width: 20px', 'margin-left: 3px'],
  ['the words of a missing picture', '<p><img src="gone.png" alt="A heart">', 'p', 'text: A heart'],
  ['a background of a cell', '<table><td background=heart.png style="color:blue">x', 'td',
    `background-image: ${PICTURE}`, 'color: rgb(0, 0, 255)'],
  ['colours of a body', '<body bgcolor=FFFFCC text=navy>x', '.body',
    'background-color: rgb(255, 255, 204)', 'color: rgb(0, 0, 128)'],
  ['a style in any case', `<p STYLE="Color:Red;BACKGROUND:URL( 'heart.png' ) no-repeat">x`, 'p',
    'color: rgb(255, 0, 0)', `background-image: ${PICTURE}`, 'background-repeat: no-repeat'],
  ['a colour beside a missing picture', '<p style="background:red url(gone.png)">x', 'p',
    'background-color: rgb(255, 0, 0)'],
  ['quotes in a style', `<p style="font-family:&quot;Two Words&quot;">x`, 'p',
    'font-family: "Two Words", sans-serif'],
  ['a font with serifs', `<p style="font-family:'Times New Roman'">x`, 'p',
    'font-family: "Times New Roman", serif'],
  ['a font of equal widths', '<font face="Courier New">x', 'font',
    'font-family: "Courier New", monospace'],
  ['quotes in a value', `<p title='say "x"'>x`, 'p', '@title: say "x"'],
  ['what matters more', '<style>p{color:red!important}</style><p style="color:blue">x', 'p', RED],
  ['a place within the pane', '<p style="position:absolute;left:9px">x', 'p', 'left: 9px'],
  ['rules for the body', '<style>body{color:red}</style><p>x', 'p', RED],
  ['rules from the root on', '<style>html body p.a{color:red}</style><p class=a>x', 'p', RED],
  ['classes before the body', '<style>.a{color:red}body{color:blue}</style><body class=a>x', '.body', RED],
  ['rules within the signs of a comment', '<style><!-- p{color:red} --></style><p>x', 'p', RED],
  ['rules behind other things', '<style>@import "a.css";/* } */b{font-family:"}"}p{color:red}</style><p>x',
    'p', RED],
  ['a rule never closed', '<style>b{color:blue}p{color:red</style><p>x', 'p', RED],
  ['rules before brackets that are too deep', `<style>p{color:red}b{width:${'calc('.repeat(5000)}</style>` +
    '<p>x', 'p', RED],
  ['a family in escapes', '<p style="font-family:\\5b8b\\4f53 ;color:red">x', 'p',
    'font-family: 宋体, sans-serif', RED],
  ['divs, of which the body is none', '<style>div{color:red}</style><div>y</div>', '.body',
    'color: rgb(0, 0, 0)'],
  ['tags closed in another order', '<b>a<i>b</b>c</i>', 'b + i', 'text: c', 'font-weight: 400'],
  ['a font over paragraphs', '<p><font color=red>a<p>b</font>', 'p + p font', 'text: b', RED],
  ['more fonts than may stay open', '<font color=red>x</font>'.repeat(60), 'font:nth-child(60)', RED],
  ['lines never closed', `<ul>${'<li><font color=red>x</font>'.repeat(150)}`, 'li:nth-child(150) font', RED],
  ['signs and entities', '<p>1 < 2 &amp;&nbsp;&eacute; <3 </p>', 'p', 'text: 1 < 2 &\u00a0é <3 '],
  ['text without a tag', 'plain', '.body', 'text: plain'],
  ['text of unknown elements', '<blink>a</blink><x-y>b</x-y><o:p>c</o:p>', '.body', 'text: abc'],
  ['text beside what is none', '<!doctype html>a<!-->b<!-- c --!>d<title>e</title>f<?xml g?>' +
    '<script>h</script><svg><text>i</text></svg>', '.body', 'text: abdf'],
  ['an empty page', '', '.body', 'text: '],
];

test('what an author means is shown', async (t) => {
  for (const [why, html, at, ...found] of KEPT) {
    await t.test(why, async () => {
      assert.deepEqual(await page.evaluate(lookAt, { html, at, found }), found);
    });
  }
  assert.deepEqual(record.violations, []);
});

/**
 * Runs in the page: shows a page and reads what rows name.
 * @param {{html: string, at: string, found: string[]}} row
 */
function lookAt({ html, at, found }) {
  const element = window.show(html).querySelector(at);
  if (!element) return `nothing at ${at}`;
  const computed = getComputedStyle(element);
  const read = (/** @type {string} */ name) => {
    if (name === 'text') return element.textContent;
    if (name.startsWith('@')) return element.getAttribute(name.slice(1));
    return computed.getPropertyValue(name).replace(location.origin, '');
  };
  return found.map((row) => row.split(':')[0]).map((name) => `${name}: ${read(name)}`);
}

test('a known picture loads', async () => {
  const width = await page.evaluate(async () => {
    const image = window.show('<img src="heart.png">').querySelector('img');
    await image.decode();
    return image.naturalWidth;
  });
  assert.ok(width > 0);
});

test('the work that a page can make is bounded', { timeout: 60_000 }, async (t) => {
  const formatted = Array.from({ length: 3000 }, (_, i) => `<b id=${i}>`).join('');
  const inTables = Array.from({ length: 900 }, (_, i) => `<b id=${i}><table></b></table>`).join('');
  /** @type {[why: string, html: string][]} */
  const rows = [
    ['very deep', '<div>'.repeat(100_000)],
    ['very deep, unknown elements', '<x>'.repeat(100_000)],
    ['very deep, tables', '<table><tr><td>'.repeat(3000)],
    ['many elements', '<i></i>'.repeat(400_000)],
    ['many end tags that open', '</p>'.repeat(400_000)],
    ['formatting opened again in each paragraph', `<p>${formatted}</p>${'<p>x'.repeat(3000)}`],
    ['formatting that no end tag closes', `<p>${inTables}</p>${'<p>x'.repeat(3000)}`],
    ['many comments', '<!---->'.repeat(400_000)],
    ['a tag that never ends', `<p ${'a="'.repeat(800_000)}`],
    ['much text', 'many words '.repeat(400_000)],
    ['signs only', '<'.repeat(2_500_000)],
    ['many rules', `<style>${'.a{color:red}'.repeat(150_000)}</style>`],
    ['much style that never ends', `<style>.a{background:${'url("'.repeat(400_000)}`],
    ['a selector that takes long', `<style>${'* '.repeat(90)}.x{}</style>${'<div>'.repeat(3000)}`],
  ];
  for (const [why, html] of rows) {
    await t.test(why, async () => {
      const { milliseconds, elements, depth, rules } = await page.evaluate(measure, html);
      assert.ok(milliseconds < 3000, `${milliseconds} ms`);
      assert.ok(elements <= 4001, `${elements} elements`);
      assert.ok(depth <= 101, `${depth} levels`);
      assert.ok(rules <= 500, `${rules} rules`);
    });
  }
});

/**
 * Runs in the page.
 * @param {string} html
 */
function measure(html) {
  const start = performance.now();
  const root = window.show(html);
  root.firstElementChild.getBoundingClientRect();
  const milliseconds = Math.round(performance.now() - start);
  let depth = 0;
  for (let deepest = root.querySelector('*'); deepest; deepest = deepest.firstElementChild) depth++;
  const rules = root.adoptedStyleSheets[0]?.cssRules.length ?? 0;
  return { milliseconds, elements: root.querySelectorAll('*').length, depth, rules };
}
