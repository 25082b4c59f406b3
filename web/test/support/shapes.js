/**
 * Text that is cheap to write and made to be dear to read: each shape repeats something that a reader
 * may look at again and again.
 */

const CHARACTERS = 100_000;

/**
 * @param {string | ((index: number) => string)} unit
 * @param {number} [characters]
 */
function repeated(unit, characters = CHARACTERS) {
  if (typeof unit === 'string') return unit.repeat(Math.ceil(characters / unit.length));
  let text = '';
  for (let i = 0; text.length < characters; i++) text += unit(i);
  return text;
}

/**
 * @param {string} opening
 * @param {string} closing
 */
function nested(opening, closing) {
  const levels = CHARACTERS / (opening.length + closing.length);
  return opening.repeat(levels) + closing.repeat(levels);
}

/** @type {[why: string, text: string][]} */
// prettier-ignore
export const SHAPES = [
  ['blanks', repeated(' ')],
  ['blanks before the name of a picture', `p{background:url(${repeated(' ')}x`],
  ['blanks behind the name of a picture', `p{background:url("a"${repeated(' ')}x`],
  ['pictures that are never closed', repeated('url(')],
  ['pictures whose quotes are never closed', repeated('url("')],
  ['pictures with either quote', repeated(`url("'`)],
  ['pictures with more behind their quotes', repeated(`url('a' `)],
  ['pictures by the thousand', `p{background:${repeated('url(a.png),')}red`],
  ['escaped quotes', `p{background:url("${repeated('\\"')}`],
  ['escapes', repeated('\\')],
  ['escaped functions', repeated('\\75rl(')],
  ['quotes', repeated(`"'`)],
  ['lines that end in a quote', repeated('"\n')],
  ['comments of styles, never closed', repeated('/*')],
  ['comments of pages, never closed', repeated('<!--')],
  ['comments that end oddly', repeated('<!--->')],
  ['parentheses', repeated('(')],
  ['brackets', repeated('[')],
  ['braces', repeated('{')],
  ['closed ones without a beginning', repeated(')]}')],
  ['functions in functions', `p{width:${nested('calc(', ')')}`],
  ['selectors in selectors', `${nested(':is(', ')')}{}`],
  ['rules in rules', nested('a{', '}')],
  ['blocks in rules', `p{${nested('a:{', '}')}`],
  ['media in media', nested('@media all{', '}')],
  ['many rules', repeated('a{color:red}')],
  ['many parts of a selector', `${repeated('a ')}{color:red}`],
  ['many selectors', `${repeated('a,')}a{color:red}`],
  ['many conditions', `${repeated('[a]')}{color:red}`],
  ['many negations', `${repeated(':not(a)')}{color:red}`],
  ['many declarations', `p{${repeated('color:red;margin:0;')}`],
  ['many properties that nobody knows', `p{${repeated((i) => `a${i}:0;`)}`],
  ['many variables', `p{${repeated((i) => `--a${i + 1}:var(--a${i}) var(--a${i});`)}`],
  ['a long sum', `p{width:calc(1px${repeated('+ 1px ')}`],
  ['many families', `p{font-family:${repeated('a,')}a`],
  ['many colours', `p{background:linear-gradient(${repeated('red,')}red)`],
  ['many columns', `p{grid-template-columns:${repeated('repeat(9999,1px 1px)')}`],
  ['many areas', `p{grid-template-areas:${repeated('"a b c d"')}`],
  ['many transitions', `p{transition:${repeated((i) => `a${i} 1s,`)}b 1s`],
  ['a number', `p{width:${repeated('9')}`],
  ['signs', repeated('<')],
  ['end signs', repeated('</')],
  ['tags that never end', repeated('<p ')],
  ['pictures that name no file', repeated('<img ')],
  ['pictures whose file never comes', repeated('<img src')],
  ['pictures whose file comes late', `<img ${repeated(' ')}src=a.png>`],
  ['blanks before the file of a picture', `<img src=${repeated(' ')}`],
  ['blanks before the sign of a picture', `<img src${repeated(' ')}`],
  ['files in many quotes', repeated(`<img src="'`)],
  ['a long name of a file', `<img src="${repeated('a')}.png">`],
  ['a long name that no quote ends', `<img src="${repeated('a')}.png>`],
  ['many pictures', repeated('<img src="a.png">')],
  ['many attributes', `<p ${repeated((i) => `a${i}="b" `)}>`],
  ['many attributes without a value', `<p ${repeated((i) => `a${i} `)}>`],
  ['the same attribute', `<p ${repeated('id=a ')}>`],
  ['attributes whose quotes are never closed', `<p ${repeated('a="')}`],
  ['a style in every element', repeated('<p style="color:red">')],
  ['many ids', repeated((i) => `<p id=a${i}>`)],
  ['deep', nested('<b>', '</b>')],
  ['deep blocks', nested('<div>', '</div>')],
  ['deep, never closed', repeated('<a>')],
  ['deep tables', repeated('<table><tr><td>')],
  ['deep namespaces', nested('<a:b xmlns:a="c">', '</a:b>')],
  ['many elements', repeated('<i></i>')],
  ['scripts', repeated('<script>')],
  ['styles', repeated('<style></style>')],
  ['end tags of styles, never closed', `<style>${repeated('</style ')}`],
  ['almost end tags of styles', `<style>${repeated('</styl')}`],
  ['formatting opened again', `<p>${repeated((i) => `<b id=${i}>`, 50_000)}</p>${repeated('<p>x', 50_000)}`],
  ['entities', repeated('&amp;')],
  ['entities never closed', repeated('&')],
  ['an entity never closed', `<Response>&${repeated('a')}</Response>`],
  ['numbers of characters', repeated('&#38;')],
  ['responses', repeated('<Response>A1</Response>')],
  ['responses never closed', repeated('<Response>')],
  ['responses whose end never comes', repeated('<Response')],
  ['declarations of XML', `<?xml ${repeated('?')}`],
  ['declarations never closed', repeated('<?xml ')],
  ['an entity in an entity', `<!DOCTYPE a [${repeated((i) => `<!ENTITY e${i + 1} "&e${i};&e${i};">`)}]><a>&e9;</a>`],
  ['sections never closed', repeated('<![CDATA[')],
  ['a long word', repeated('a')],
];
