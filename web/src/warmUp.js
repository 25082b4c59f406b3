/**
 * Runs items through everything, unseen, while nobody waits: browsers compile code when it is first run,
 * which takes longer than an item itself, and compile it well when it is run often.
 */
import { Component } from './Component.js';
import { bringFiles } from './host/ItemFiles.js';
import { toBytes } from './host/ItemXml.js';
import { PointerAct } from './runtime/Runtime.js';

const TEXTS = `<Root><en Id="en" Font="Verdana"><ApplicationTitle> </ApplicationTitle><Static>
<msgClearAll> </msgClearAll><ScrollItem> </ScrollItem><Replace> </Replace><Replaced> </Replaced>
<NumSourceUses>%</NumSourceUses><ButtonText><cmdClearAll> </cmdClearAll>
<cmdShowInstruction> </cmdShowInstruction><cmdCalculator> </cmdCalculator><cmdScroll> </cmdScroll>
</ButtonText></Static></en></Root>`;

/**
 * @param {number} count
 * @param {(number: number) => string} text
 */
const each = (count, text) => Array.from({ length: count }, (_, i) => text(i + 1)).join('');

/** @param {number} count of targets, and of sources */
const itemOf = (
  count,
) => `<DragAndDropItem Language="en" CaseCode="NONE" TwipsPerPixelX="15" TwipsPerPixelY="15"
 DisplayScrollMsg="False"><Instructions><Text> </Text></Instructions><ItemStem><Heading> </Heading>
<Text><![CDATA[<html><b>a</b><table><tr><td>b</td></tr></table></html>]]></Text></ItemStem>
<WorkArea Height="3000" Width="3000" BackColor="HFFFFFF" ImagePath="" ImageLeft="0" ImageTop="0">
<Heading>a</Heading></WorkArea><Labels/><Callouts/><Shapes/><Targets>${each(
  count,
  (i) =>
    `<Target TargetID="${i}" GroupID="1" AnswerValue="${String.fromCharCode(64 + i)}" Top="${900 * i}" Left="900"/>`,
)}</Targets>
<Groups><Group GroupID="1"><ItemSettings ItemHeight="400" ItemWidth="900"/>
<TargetSettings EmptyImage=""><Caption FontName="Verdana" FontSize="9" FontBold="False"
 FontItalic="False" FontUnderline="False" ForeColor="H000000" Alignment="2">?</Caption>
</TargetSettings><HeadingSettings><GroupHeading>a</GroupHeading></HeadingSettings></Group></Groups>
<SourceArea Location="Left" Height="3000" Width="3000">${each(
  count,
  (i) => `<Source SourceID="${i}" GroupID="1" AnswerValue="${i}" NumUses="1" ImagePath="">
<Body><![CDATA[${i === 1 ? '<html><i>b</i></html>' : 'a'}]]></Body></Source>`,
)}</SourceArea><Answers><Answer Weight="1">A1</Answer></Answers></DragAndDropItem>`;

const TEXTS_FILE = 'KVStatic.xml';
const SIZE = 12_000; // twips

const SUPPORT = {
  GetLocalizePath: () => TEXTS_FILE,
  GetGraphicsPath: () => '',
  GetSupportFileDir: () => 'zav-support:/',
};
const PARENT = { LogError() {}, ShowMessage: () => 1, GetGraphicsPath: () => '' };

/** Items by their size: the first has all code run, the others have what is run most compiled well. */
const ROUNDS = [2, 40, 40];

// Safari knows of no idleness.
const idle = () =>
  new Promise((resolve) => (globalThis.requestIdleCallback ?? setTimeout)(resolve));

/**
 * Ends early when there is an item: that does the same.
 * @param {import('./runtime/Runtime.js').Runtime} runtime
 * @param {string | URL} artworkFolder
 */
export async function warmUp(runtime, artworkFolder) {
  for (const count of ROUNDS) {
    await idle();
    if (runtime.hasItems) return;
    await showOnce(runtime, artworkFolder, itemOf(count));
  }
}

/**
 * @param {import('./runtime/Runtime.js').Runtime} runtime
 * @param {string | URL} artworkFolder
 * @param {string} xml
 */
async function showOnce(runtime, artworkFolder, xml) {
  await bringFiles(xml, { localizePath: () => '', graphicsPaths: () => [] });
  const host = document.createElement('div');
  host.style.cssText = 'position:fixed;width:1px;height:1px;visibility:hidden';
  const shadow = host.attachShadow({ mode: 'open' });
  document.documentElement.append(host); // fonts are looked for when something is laid out
  const component = new Component(runtime, shadow, artworkFolder, () => {});
  try {
    const call = (/** @type {string} */ member, /** @type {unknown[]} */ ...args) =>
      component.call(`DisplayInt_${member}`, args);
    component.addFile(TEXTS_FILE, new TextEncoder().encode(TEXTS));
    component.put('mExtParent', PARENT);
    component.put('DisplayInt_ExternalSupport', SUPPORT);
    const item = toBytes(xml);
    call('SetParentWnd', component.hostWindow);
    call('InitExternalDisplay', item, item.length, 0);
    call('ShowExternalDisplay', 0, 0, SIZE, SIZE);
    await Promise.resolve(); // its pages are loaded
    drag(component.view);
    call('GetExternalStateBytes');
  } finally {
    component.dispose();
    host.remove();
  }
}

/** @param {import('./dom/View.js').View} view */
function drag(view) {
  const source = view.controlNamed('imgSourceCover-1');
  if (!source) return;
  view.pointer(PointerAct.press, source, 40, 120);
  for (let step = 0; step < 20; step++) {
    view.pointer(PointerAct.move, source, 40 + 30 * step, 120 + 10 * step);
  }
  view.pointer(PointerAct.release, source, 40, 500);
}
