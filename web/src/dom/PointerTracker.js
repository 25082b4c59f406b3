/**
 * The candidate's pointer (mouse, pen or touch) on the controls.
 *
 * A press captures the pointer for the control under it. Where the element stands in the viewport is
 * measured when the pointer is pressed and let go and, since a page may move it meanwhile, now and
 * then in between. Before an event is told the component knows how far everything is scrolled.
 */
import { PointerAct } from '../runtime/Runtime.js';
import { controlOf, HtmlPaneView, ScrollFrameView, SplitterView } from './controls.js';

const PRIMARY_BUTTON = 0;
/** Milliseconds for which a measured place holds. */
const PLACE_HOLDS = 100;
/** Milliseconds for which a turn of the wheel may go on scrolling. */
const WHEEL_ROLLS = 1000;

export class PointerTracker {
  /** @type {import('./View.js').View} */
  #view;
  /** @type {DOMRect | undefined} of the layer, as long as it holds */
  #rect;
  #scale = 1;
  #measuredAt = 0;
  #rollsUntil = 0;
  /** @type {{pointer: number, control: import('./controls.js').ControlView} | undefined} */
  #captured;

  /**
   * @param {import('./View.js').View} view
   * @param {AbortSignal} signal ends it
   */
  constructor(view, signal) {
    this.#view = view;
    const { layer } = view;
    const options = { signal };
    layer.addEventListener('pointerdown', (event) => this.#press(event), options);
    layer.addEventListener('pointermove', (event) => this.#move(event), options);
    layer.addEventListener('pointerup', (event) => this.#release(event), options);
    layer.addEventListener('pointercancel', (event) => this.#cancel(event), options);
    layer.addEventListener('lostpointercapture', (event) => this.#loseCapture(event), options);
    layer.addEventListener('pointerleave', () => this.#leave(), options);
    layer.addEventListener('dragstart', (event) => event.preventDefault(), options);
    layer.addEventListener('contextmenu', (event) => this.#suppressMenu(event), options);
    const passive = { ...options, capture: true, passive: true };
    const roll = (/** @type {Event} */ event) => (this.#rollsUntil = event.timeStamp + WHEEL_ROLLS);
    layer.addEventListener('wheel', roll, passive);
    layer.addEventListener('keydown', roll, passive);
    addEventListener('scroll', () => (this.#rect = undefined), passive);
  }

  /** @param {PointerEvent} event */
  #press(event) {
    if (event.button !== PRIMARY_BUTTON) return;
    const control = controlOf(event);
    if (!control || control instanceof HtmlPaneView || control instanceof SplitterView) return;
    if (control instanceof ScrollFrameView) return;
    this.#rect = undefined;
    this.#view.readScrolling();
    if (this.#captured && this.#captured.pointer !== event.pointerId) return; // a second finger
    if (control.takesFocus) {
      control.element.focus(
        /** @type {FocusOptions} */ ({ preventScroll: true, focusVisible: false }),
      );
    }
    control.element.setPointerCapture(event.pointerId);
    this.#capture({ pointer: event.pointerId, control });
    this.#tell(PointerAct.press, control.id, event);
  }

  /** @param {PointerEvent} event */
  #move(event) {
    if (this.#captured) {
      if (this.#captured.pointer !== event.pointerId) return;
      if (event.timeStamp < this.#rollsUntil) this.#view.readScrolling();
      if (event.buttons & 1) {
        this.#tell(PointerAct.move, this.#captured.control.id, event);
        return;
      }
      // The button went up where nobody told.
      this.#capture(undefined);
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
    this.#capture(undefined);
    this.#rect = undefined;
    this.#view.readScrolling();
    // A fast hand is where no move has told of.
    this.#tell(PointerAct.move, control.id, event);
    this.#tell(PointerAct.release, control.id, event);
    if (this.#isOver(control, event)) this.#tell(PointerAct.click, control.id, event);
    this.#view.acted();
  }

  /**
   * Some browsers let go of the pointer when another of its buttons goes up.
   * @param {PointerEvent} event
   */
  #loseCapture(event) {
    if (this.#captured?.pointer !== event.pointerId) return;
    const { element } = this.#captured.control;
    if (event.buttons & 1 && element.isConnected) element.setPointerCapture(event.pointerId);
    else this.#cancel(event);
  }

  /** @param {PointerEvent} event */
  #cancel(event) {
    if (!this.#captured || this.#captured.pointer !== event.pointerId) return;
    this.#capture(undefined);
    this.#tell(PointerAct.cancel, 0, event);
    this.#view.acted();
  }

  /** @param {{pointer: number, control: import('./controls.js').ControlView} | undefined} captured */
  #capture(captured) {
    this.#captured = captured;
    this.#view.layer.classList.toggle('pressed', captured !== undefined);
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
    if (event.timeStamp > this.#measuredAt + PLACE_HOLDS) this.#rect = undefined;
    const rect = (this.#rect ??= this.#measure(event.timeStamp));
    this.#view.pointer(
      act,
      control,
      (event.clientX - rect.left) / this.#scale,
      (event.clientY - rect.top) / this.#scale,
    );
  }

  /**
   * A host may show the element scaled.
   * @param {number} now
   */
  #measure(now) {
    const { layer } = this.#view;
    const rect = layer.getBoundingClientRect();
    this.#scale = rect.width / layer.offsetWidth || 1;
    this.#measuredAt = now;
    return rect;
  }
}
