/**
 * The one style sheet of an element's shadow root. Nothing of a page's own styles reaches in: what
 * is inherited begins anew at .root.
 */
import { styles as dialogStyles } from './MessageDialog.js';
import { styles as windowStyles } from './FloatingWindow.js';
import { styles as calculatorStyles } from './Calculator.js';

// The wheel turns what lies under the dragged item, and a prompt to scroll is not in its way: neither
// takes the pointer.
const base = `
:host { display: block; position: relative; min-width: 0; overflow: hidden; contain: content; }
:host([hidden]) { display: none; }
.root {
  all: initial; direction: ltr;
  position: absolute; inset: 0; overflow: hidden;
  font: 10pt Verdana, 'DejaVu Sans', sans-serif; color: #000;
  user-select: none; -webkit-user-select: none;
  --accent: #1a5f8a;
}
.notice { margin: 0; padding: 24px; font: 14px/1.5 system-ui, sans-serif; color: #8a1f11; background: #fff; }
.layer { position: absolute; inset: 0; overflow: hidden; isolation: isolate; }
.dialogs { pointer-events: none; z-index: 2; }
.dialogs > * { pointer-events: auto; }
.lobby { visibility: hidden; contain: strict; z-index: -1; }
.lobby > :not(.measured) { display: none; }
.control {
  position: absolute; left: 0; top: 0; box-sizing: border-box;
  overflow: clip; contain: layout style paint;
}
.control:focus { outline: none; }
.control:focus-visible { outline: 3px solid var(--accent); outline-offset: -3px; border-radius: 3px; }
.form { background: #fff; color: #000; }
.form.framed { position: relative; }
.button { touch-action: none; }
.button > img, .face > img {
  position: absolute; inset: 0; width: 100%; height: 100%;
  object-fit: scale-down; pointer-events: none;
}
.caption {
  position: absolute; inset: 0 4px; display: flex; align-items: center;
  overflow: hidden; white-space: pre-wrap; pointer-events: none;
}
.caption > span { width: 100%; }
.faced {
  border: 1px solid #8a929a; border-radius: 4px;
  background-image: linear-gradient(#ffffffc0, #ffffff70);
  box-shadow: inset 0 1px #ffffff90, inset 0 -1px #00000018;
}
.button.disabled:has(> img) { mix-blend-mode: multiply; }
.disabled > img { opacity: .45; }
.disabled > .caption { color: #8c9299; }
.label { white-space: pre-wrap; }
.surface > img, .surface > canvas { position: absolute; left: 0; top: 0; pointer-events: none; }
.surface > img { max-width: none; }
.lifted {
  touch-action: none; will-change: transform;
  box-shadow: 0 0 0 1px #5b6b78, 0 6px 16px #0005;
}
.pressed .lifted { pointer-events: none; }
.frame > .button { pointer-events: none; }
.scroller { position: absolute; inset: 0; overscroll-behavior: contain; }
.scroller::-webkit-scrollbar, .pane::-webkit-scrollbar { width: 15px; height: 15px; background: #eef0f2; }
.scroller::-webkit-scrollbar-corner { background: #eef0f2; }
.scroller::-webkit-scrollbar-thumb, .pane::-webkit-scrollbar-thumb {
  background: #b4bbc2 content-box; border: 4px solid transparent; border-radius: 8px; min-height: 28px; min-width: 28px;
}
.scroller::-webkit-scrollbar-thumb:hover, .pane::-webkit-scrollbar-thumb:hover { background-color: #8f989f; }
.content { position: relative; overflow: hidden; min-width: 100%; min-height: 100%; }
.bar { position: absolute; left: 0; top: 0; background: #eef0f2; touch-action: none; }
.bar:hover, .bar:focus-visible, .bar.dragged { background: #d5dde4; outline: none; }
.bar.dragged { z-index: 2147483647; }
.bar::after {
  content: ''; position: absolute; inset: 0; margin: auto; border-radius: 2px;
  background: #b4bbc2; width: 24px; height: 2px;
}
.upright { cursor: col-resize; }
.level { cursor: row-resize; }
.upright::after { width: 2px; height: 24px; }
.pane { background: #fff; }
.bordered { border: 1px solid #9aa5b1; }
.pane.scrolls { overflow: hidden auto; }
.rich { padding: 3px; display: flex; flex-direction: column; justify-content: safe center; white-space: pre-wrap; overflow-wrap: break-word; }
.rich > .formatted { white-space: normal; }
@media (forced-colors: active) { .control:focus-visible { outline-color: Highlight; } }
`;

/** The style of a page's content, in its own shadow root. */
const page = `
:host { user-select: none; -webkit-user-select: none; }
.page { box-sizing: border-box; overflow-wrap: break-word; }
.page > * { height: 100%; box-sizing: border-box; }
.page td:has(> button) { white-space: nowrap; }
.page p { margin: 0 0 .7em; }
.page button { font: inherit; color: #1d2b36; cursor: pointer; padding: 0; box-sizing: border-box;
  border: 1px solid #8a9aa6; border-radius: 4px; background: linear-gradient(#fdfefe, #e3e9ee); }
.page button:hover { background: linear-gradient(#fff, #eef3f7); }
.page button:active { background: #d5dee6; }
.page button:focus-visible { outline: 2px solid #1a5f8a; outline-offset: 1px; }
`;

/** @param {string} text */
function sheet(text) {
  const made = new CSSStyleSheet();
  made.replaceSync(text);
  return made;
}

/** @type {CSSStyleSheet | undefined} */
let rootSheet;
/** @type {CSSStyleSheet | undefined} */
let pageSheet;

export function rootStyles() {
  rootSheet ??= sheet(base + windowStyles + dialogStyles + calculatorStyles);
  return rootSheet;
}

export function pageStyles() {
  pageSheet ??= sheet(page);
  return pageSheet;
}
