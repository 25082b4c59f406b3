/**
 * The candidate's pointer (mouse, pen or touch) on the controls.
 *
 * A press captures the pointer for the control under it. Where the element stands in the viewport is
 * measured when a press begins and when something may have moved it, never while it is dragged over:
 * the element's rectangle is kept. Before an event is told the component knows how far everything is
 * scrolled.
 */
import { PointerAct } from '../runtime/Runtime.js';
import { controlOf, HtmlPaneView, ScrollFrameView, SplitterView } from './controls.js';

const PRIMARY_BUTTON = 0;

export class PointerTracker {
  /** @type {import('./View.js').View} */
  #view;
  /** @type {DOMRect | undefined} of the layer, while nothing may have moved it */
  #rect;
  #scale = 1;
  /** @type {{pointer: number, control: import('./controls.js').ControlView} | undefined} */
  #captured;
  #stopped = new AbortController();

  /** @param {import('./View.js').View} view */
  constructor(view) {
    this.#view = view;
    const { layer } = view;
    const options = { signal: this.#stopped.signal };
    layer.addEventListener('pointerdown', (event) => this.#press(event), options);
    layer.addEventListener('pointermove', (event) => this.#move(event), options);
    layer.addEventListener('pointerup', (event) => this.#release(event), options);
    layer.addEventListener('pointercancel', (event) => this.#cancel(event), options);
    layer.addEventListener('lostpointercapture', (event) => this.#cancel(event), options);
    layer.addEventListener('pointerleave', () => this.#leave(), options);
    layer.addEventListener('dragstart', (event) => event.preventDefault(), options);
    layer.addEventListener('contextmenu', (event) => this.#suppressMenu(event), options);
    const forget = () => (this.#rect = undefined);
    const passive = { ...options, capture: true, passive: true };
    addEventListener('scroll', forget, passive);
    addEventListener('resize', forget, passive);
  }

  dispose() {
    this.#stopped.abort();
  }

  /** @param {PointerEvent} event */
  #press(event) {
    if (event.button !== PRIMARY_BUTTON) return;
    const control = controlOf(event);
    if (!control || control instanceof HtmlPaneView || control instanceof SplitterView) return;
    if (control instanceof ScrollFrameView) return;
    this.#view.readScrolling();
    if (this.#captured && this.#captured.pointer !== event.pointerId) return; // a second finger
    this.#rect = undefined;
    if (control.takesFocus) {
      control.element.focus(
        /** @type {FocusOptions} */ ({ preventScroll: true, focusVisible: false }),
      );
    }
    control.element.setPointerCapture(event.pointerId);
    this.#captured = { pointer: event.pointerId, control };
    this.#tell(PointerAct.press, control.id, event);
  }

  /** @param {PointerEvent} event */
  #move(event) {
    if (this.#captured) {
      if (this.#captured.pointer !== event.pointerId) return;
      this.#view.readScrolling();
      if (event.buttons & 1) {
        this.#tell(PointerAct.move, this.#captured.control.id, event);
        return;
      }
      // The button went up where nobody told.
      this.#captured = undefined;
      this.#tell(PointerAct.loseRelease, 0, event);
    }
    if (event.buttons) return;
    this.#tell(PointerAct.move, controlOf(event)?.id ?? 0, event);
  }

  /** @param {PointerEvent} event */
  #release(event) {
    if (!this.#captured || this.#captured.pointer !== event.pointerId) return;
    if (event.button !== PRIMARY_BUTTON) return;
    const { control } = this.#captured;
    this.#captured = undefined;
    this.#view.readScrolling();
    this.#tell(PointerAct.release, control.id, event);
    if (this.#isOver(control, event)) this.#tell(PointerAct.click, control.id, event);
    this.#view.acted();
  }

  /** @param {PointerEvent} event */
  #cancel(event) {
    if (!this.#captured || this.#captured.pointer !== event.pointerId) return;
    this.#captured = undefined;
    this.#tell(PointerAct.cancel, 0, event);
    this.#view.acted();
  }

  #leave() {
    if (!this.#captured) this.#view.pointer(PointerAct.move, 0, -1, -1);
  }

  /**
   * A long press of a finger is no question for a menu.
   * @param {MouseEvent} event
   */
  #suppressMenu(event) {
    if (this.#captured) event.preventDefault();
  }

  /**
   * @param {import('./controls.js').ControlView} control
   * @param {PointerEvent} event
   */
  #isOver(control, event) {
    const root = /** @type {ShadowRoot} */ (this.#view.layer.getRootNode());
    const top = root.elementFromPoint(event.clientX, event.clientY);
    return top !== null && control.element.contains(top);
  }

  /**
   * @param {number} act
   * @param {number} control
   * @param {PointerEvent} event
   */
  #tell(act, control, event) {
    const rect = (this.#rect ??= this.#measure());
    this.#view.pointer(
      act,
      control,
      (event.clientX - rect.left) / this.#scale,
      (event.clientY - rect.top) / this.#scale,
    );
  }

  // A host may show the element scaled.
  #measure() {
    const { layer } = this.#view;
    const rect = layer.getBoundingClientRect();
    this.#scale = rect.width / layer.offsetWidth || 1;
    return rect;
  }
}
