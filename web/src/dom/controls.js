/**
 * One DOM element for each control of the component. An element is appended once, into its
 * container's, and never again: what lies over what is said by z-index alone. Places are set by
 * transforms, so that nothing is laid out anew when something moves.
 */
import { applyFont } from './fonts.js';
import { Surface } from './Surface.js';

/** Values of Pointer. */
const CUSTOM_POINTER = 99;
/** @type {Record<number, string>} */
const CURSORS = { 0: '', 1: 'default', 12: 'no-drop' };
const CURSOR_HOT_SPOT = 16;

/** Values of CaptionAlignment and LabelAlignment. */
/** @type {Record<number, string>} */
const CAPTION_ALIGNMENT = { 0: 'left', 1: 'right', 7: 'center' };
const LABEL_ALIGNMENT = ['left', 'right', 'center'];

/**
 * What a control is made with.
 * @typedef {object} Place
 * @property {number} id
 * @property {string} name
 * @property {number} index -1 for a control that is not in an array
 * @property {ControlView | undefined} container none for a form
 * @property {boolean} framed stands in its container's frame, does not scroll with it
 * @property {boolean} takesFocus
 * @property {import('./Pictures.js').Pictures} pictures
 * @property {import('./Pages.js').Pages} pages
 */

/** @type {WeakMap<Node, ControlView>} */
const owners = new WeakMap();

/**
 * The control that an event happened to; through shadow roots.
 * @param {Event} event
 */
export function controlOf(event) {
  for (const node of event.composedPath()) {
    const owner = owners.get(/** @type {Node} */ (node));
    if (owner) return owner;
  }
  return undefined;
}

/** @param {number} color 0x00RRGGBB */
export const cssColor = (color) => `#${color.toString(16).padStart(6, '0')}`;

export class ControlView {
  left = 0;
  top = 0;
  width = 0;
  height = 0;
  #enabled = true;
  #pointer = 0;
  #pointerPicture = 0;

  /**
   * @param {Place} place
   * @param {string} className
   * @param {HTMLElement} element
   */
  constructor(place, className, element = document.createElement('div')) {
    this.id = place.id;
    this.takesFocus = place.takesFocus;
    this.element = element;
    this.pictures = place.pictures;
    element.className = `control ${className}`;
    element.id = place.index < 0 ? place.name : `${place.name}-${place.index}`;
    if (place.takesFocus) {
      element.tabIndex = 0;
      element.setAttribute('role', 'button');
    }
    owners.set(element, this);
    place.container?.hold(this, place.framed);
  }

  /**
   * @param {ControlView} child
   * @param {boolean} _framed
   */
  hold(child, _framed) {
    this.element.append(child.element);
  }

  /**
   * @param {number} left
   * @param {number} top
   * @param {number} width
   * @param {number} height
   */
  place(left, top, width, height) {
    const { style } = this.element;
    if (left !== this.left || top !== this.top) {
      this.left = left;
      this.top = top;
      style.transform = left || top ? `translate(${left}px, ${top}px)` : '';
    }
    if (width === this.width && height === this.height) return;
    this.width = width;
    this.height = height;
    style.width = `${width}px`;
    style.height = `${height}px`;
    this.resized();
  }

  resized() {}

  /** What it says to somebody who does not see it. */
  text() {
    return '';
  }

  /** A control that only covers others is called what they say. */
  describe() {
    const covered = [...(this.element.parentElement?.children ?? [])]
      .map((sibling) => owners.get(sibling))
      .filter((other) => other && other !== this && this.#covers(other));
    const texts = covered.map((other) => other?.text()).filter(Boolean);
    this.element.ariaLabel = texts.join(', ');
  }

  /** @param {ControlView} other */
  #covers(other) {
    const isThere = other.left === this.left && other.top === this.top;
    return isThere && other.element.style.visibility !== 'hidden';
  }

  /** @param {boolean} visible */
  setVisible(visible) {
    this.element.style.visibility = visible ? '' : 'hidden';
  }

  /** @param {number} order */
  setOrder(order) {
    this.element.style.zIndex = String(order);
  }

  /** @param {boolean} enabled */
  setEnabled(enabled) {
    if (enabled === this.#enabled) return;
    this.#enabled = enabled;
    this.element.classList.toggle('disabled', !enabled);
    if (!this.takesFocus) return;
    this.element.tabIndex = enabled ? 0 : -1;
    this.element.setAttribute('aria-disabled', String(!enabled));
  }

  /**
   * Colours as 0x00RRGGBB. A control that is told of none is black, on nothing.
   * @param {number} _backColor
   * @param {number} _foreColor
   */
  setColors(_backColor, _foreColor) {}

  /**
   * @param {number} pointer
   * @param {number} picture
   */
  setPointer(pointer, picture) {
    if (pointer === this.#pointer && picture === this.#pointerPicture) return;
    this.#pointer = pointer;
    this.#pointerPicture = picture;
    const hand = `url("${this.pictures.urlOf(picture)}") ${CURSOR_HOT_SPOT} ${CURSOR_HOT_SPOT}, grab`;
    this.element.style.cursor =
      pointer === CUSTOM_POINTER && picture ? hand : (CURSORS[pointer] ?? '');
  }

  /** @param {import('./fonts.js').Font} font */
  setFont(font) {
    applyFont(this.element, font);
  }

  remove() {
    this.element.remove();
  }
}

export class FormView extends ControlView {
  /** @param {Place} place */
  constructor(place) {
    super(place, 'form');
    this.caption = '';
    /** @type {import('./FloatingWindow.js').FloatingWindow | undefined} */
    this.frame = undefined;
  }

  /** @param {string} caption */
  show(caption) {
    this.caption = caption;
  }

  /**
   * Stands in the frame of a window from now on, which has the place that the form had.
   * @param {import('./FloatingWindow.js').FloatingWindow} frame
   */
  standIn(frame) {
    this.frame = frame;
    this.element.classList.add('framed');
    this.element.style.transform = '';
  }

  /** @override @param {number} left @param {number} top @param {number} width @param {number} height */
  place(left, top, width, height) {
    super.place(left, top, width, height);
    if (!this.frame) return;
    this.element.style.transform = '';
    this.frame.moveTo(left, top);
    this.frame.resize(width, height);
  }
}

export class PictureBoxView extends ControlView {
  /** @param {Place} place */
  constructor(place) {
    // What stands on the form itself and over everything is what the candidate drags.
    super(place, place.container instanceof FormView ? 'surface lifted' : 'surface');
    this.surface = new Surface(this.element, place.pictures);
  }

  /** @override */
  resized() {
    this.surface.resize(this.width, this.height);
  }

  /** @override @param {number} backColor */
  setColors(backColor) {
    this.element.style.backgroundColor = cssColor(backColor);
  }
}

/**
 * What the file of a picture is called, without its kind.
 * @param {string} url
 */
function nameOf(url) {
  const [name] = url.split(/[?#]/, 1)[0].split('/').at(-1)?.split('.', 1) ?? [''];
  try {
    return decodeURIComponent(name);
  } catch {
    return name; // a percent sign of its own
  }
}

export class PictureButtonView extends ControlView {
  #picture = 0;
  /** @type {HTMLImageElement | undefined} */
  #image;
  /** @type {HTMLElement | undefined} */
  #caption;
  #hasFace = false;
  #backColor = 0;
  #foreColor = 0;

  /** @param {Place} place */
  constructor(place) {
    super(place, 'button');
  }

  /** @override @param {number} backColor @param {number} foreColor */
  setColors(backColor, foreColor) {
    this.#backColor = backColor;
    if (this.#hasFace) this.element.style.backgroundColor = cssColor(backColor);
    if (foreColor === this.#foreColor) return;
    this.#foreColor = foreColor;
    this.element.style.color = cssColor(foreColor);
  }

  /**
   * @param {number} picture
   * @param {boolean} hasFace
   * @param {number} alignment
   * @param {string} caption
   */
  show(picture, hasFace, alignment, caption) {
    if (hasFace !== this.#hasFace) {
      this.#hasFace = hasFace;
      this.element.classList.toggle('faced', hasFace);
      this.element.style.backgroundColor = hasFace ? cssColor(this.#backColor) : '';
    }
    if (picture !== this.#picture) this.#showPicture(picture);
    if (caption || this.#caption) this.#showCaption(alignment, caption);
  }

  /** @override */
  text() {
    return this.#caption?.textContent || nameOf(this.#image?.src ?? '');
  }

  /** @param {number} picture */
  #showPicture(picture) {
    this.#picture = picture;
    this.#image?.remove();
    this.#image = picture ? this.pictures.element(picture) : undefined;
    if (this.#image) this.element.prepend(this.#image);
  }

  /**
   * @param {number} alignment
   * @param {string} text
   */
  #showCaption(alignment, text) {
    if (!this.#caption) {
      this.#caption = document.createElement('div');
      this.#caption.className = 'caption';
      this.#caption.append(document.createElement('span'));
      this.element.append(this.#caption);
    }
    const span = /** @type {HTMLElement} */ (this.#caption.firstChild);
    span.textContent = text;
    span.style.textAlign = CAPTION_ALIGNMENT[alignment] ?? 'center';
  }
}

export class LabelView extends ControlView {
  /** @param {Place} place */
  constructor(place) {
    super(place, 'label');
  }

  /** @override @param {number} _backColor @param {number} foreColor */
  setColors(_backColor, foreColor) {
    this.element.style.color = cssColor(foreColor);
  }

  /**
   * @param {number} alignment
   * @param {string} caption
   */
  show(alignment, caption) {
    this.element.textContent = caption;
    this.element.style.textAlign = LABEL_ALIGNMENT[alignment] ?? 'left';
  }
}

export class HtmlPaneView extends ControlView {
  #pane;

  /** @param {Place} place */
  constructor(place) {
    const pane = place.pages.pane(place.id);
    super(place, 'pane', pane.element);
    this.#pane = pane;
  }

  /** @override @param {import('./fonts.js').Font} font */
  setFont(font) {
    this.#pane.setFont(font);
  }

  /**
   * @param {number} margin
   * @param {boolean} hasBorder
   * @param {boolean} scrolls
   */
  show(margin, hasBorder, scrolls) {
    this.#pane.setMargin(margin);
    this.element.classList.toggle('bordered', hasBorder);
    this.element.classList.toggle('scrolls', scrolls);
  }
}

export class RichTextView extends ControlView {
  #pages;

  /** @override */
  text() {
    const { firstElementChild, textContent } = this.element;
    return (firstElementChild?.shadowRoot?.textContent ?? textContent ?? '').trim();
  }

  /** @param {Place} place */
  constructor(place) {
    super(place, 'rich');
    this.#pages = place.pages;
  }

  /** @override @param {number} backColor @param {number} foreColor */
  setColors(backColor, foreColor) {
    this.element.style.backgroundColor = cssColor(backColor);
    this.element.style.color = cssColor(foreColor);
  }

  /**
   * @param {boolean} isHtml
   * @param {string} text
   */
  show(isHtml, text) {
    this.#pages.showRichText(this.element, isHtml, text);
  }
}

export class ScrollFrameView extends ControlView {
  /** The size of what is scrolled. */
  #whole = { width: 0, height: 0 };
  /** The offsets that the component knows. */
  x = 0;
  y = 0;

  /** @param {Place} place */
  constructor(place) {
    super(place, 'frame');
    this.scroller = document.createElement('div');
    this.scroller.className = 'scroller';
    this.scroller.tabIndex = -1;
    this.content = document.createElement('div');
    this.content.className = 'content';
    this.scroller.append(this.content);
    this.element.append(this.scroller);
  }

  /** @override @param {ControlView} child @param {boolean} framed */
  hold(child, framed) {
    (framed ? this.element : this.content).append(child.element);
  }

  /** @override @param {number} backColor */
  setColors(backColor) {
    this.element.style.backgroundColor = cssColor(backColor);
  }

  /**
   * @param {number} width
   * @param {number} height
   * @param {number} x
   * @param {number} y
   */
  show(width, height, x, y) {
    this.#whole = { width, height };
    this.content.style.width = `${width}px`;
    this.content.style.height = `${height}px`;
    this.#showBars();
    if (x !== this.x) this.scroller.scrollLeft = this.x = x;
    if (y !== this.y) this.scroller.scrollTop = this.y = y;
  }

  /** @override */
  resized() {
    this.#showBars();
  }

  // The room that one bar takes is no reason to show the other one.
  #showBars() {
    const { style } = this.scroller;
    style.overflowX = this.#whole.width > this.width ? 'scroll' : 'hidden';
    style.overflowY = this.#whole.height > this.height ? 'scroll' : 'hidden';
  }

  /** Takes over where the candidate scrolled to; whether that is elsewhere than before. */
  readOffsets() {
    const x = Math.round(this.scroller.scrollLeft);
    const y = Math.round(this.scroller.scrollTop);
    if (x === this.x && y === this.y) return false;
    this.x = x;
    this.y = y;
    return true;
  }
}

/**
 * A bar of a splitter, in pixels of the splitter.
 * @typedef {{left: number, top: number, width: number, height: number, upright: boolean}} Bar
 */

export class SplitterView extends ControlView {
  /** @type {HTMLElement[]} */
  #bars = [];

  /** @param {Place} place */
  constructor(place) {
    super(place, 'splitter');
  }

  /** @param {Bar[]} bars */
  show(bars) {
    bars.forEach((bar, i) => {
      const element = (this.#bars[i] ??= this.#addBar());
      element.classList.toggle('upright', bar.upright);
      element.classList.toggle('level', !bar.upright);
      element.setAttribute('aria-orientation', bar.upright ? 'vertical' : 'horizontal');
      element.style.width = `${bar.width}px`;
      element.style.height = `${bar.height}px`;
      element.style.transform = `translate(${bar.left}px, ${bar.top}px)`;
    });
    for (const element of this.#bars.splice(bars.length)) element.remove();
  }

  #addBar() {
    const element = document.createElement('div');
    element.className = 'bar';
    element.tabIndex = 0;
    element.setAttribute('role', 'separator');
    this.element.append(element);
    return element;
  }

  /**
   * The place of a bar among the bars; -1 for anything else.
   * @param {EventTarget | null} target
   */
  barOf(target) {
    return this.#bars.indexOf(/** @type {HTMLElement} */ (target));
  }
}

/** Classes by kind, in the order of ControlKind. */
export const VIEW_OF_KIND = [
  FormView,
  PictureBoxView,
  PictureButtonView,
  LabelView,
  HtmlPaneView,
  RichTextView,
  ScrollFrameView,
  SplitterView,
];
