/**
 * What is drawn on a picture box. Pictures that lie under all that is drawn are elements, so that
 * only lines and boxes are drawn anew, at the resolution of the screen; the canvas is made when there
 * is something to draw.
 */

/** Kinds of DrawnShape. */
const LINE = 0;
const FILLED_BOX = 1;
const PICTURE = 2;

/**
 * @typedef {object} Shape
 * @property {number} kind
 * @property {number} x1
 * @property {number} y1
 * @property {number} x2
 * @property {number} y2
 * @property {number} penWidth
 * @property {string} color
 * @property {number} picture
 */

/**
 * Without those that a later one hides.
 * @param {Shape[]} shapes
 */
function withoutHidden(shapes) {
  /** @type {Map<string, number>} the widest pen at a place, of what lies over it */
  const pens = new Map();
  const seen = shapes.toReversed().filter(({ kind, x1, y1, x2, y2, penWidth, picture }) => {
    const place = [kind, x1, y1, x2, y2, picture].join();
    const isSeen = penWidth > (pens.get(place) ?? -1);
    if (isSeen) pens.set(place, penWidth);
    return isSeen;
  });
  return seen.reverse();
}

const FEW_SHAPES = 100;

/**
 * A picture that lies under everything drawn.
 * @typedef {{picture: number, x: number, y: number, image?: HTMLImageElement}} Background
 */

export class Surface {
  /** @type {HTMLCanvasElement | undefined} */
  #canvas;
  /** @type {Background[]} */
  #backgrounds = [];
  /** @type {Shape[]} */
  #shapes = [];
  /** How many of them were left when those that lie hidden were last sorted out. */
  #sorted = 0;
  #width = 0;
  #height = 0;
  #isDue = false;
  #element;
  #pictures;

  /**
   * @param {HTMLElement} element
   * @param {import('./Pictures.js').Pictures} pictures
   */
  constructor(element, pictures) {
    this.#element = element;
    this.#pictures = pictures;
  }

  /**
   * @param {number} width
   * @param {number} height
   */
  resize(width, height) {
    if (width === this.#width && height === this.#height) return;
    this.#width = width;
    this.#height = height;
    this.redraw();
  }

  /**
   * @param {boolean} isWhole whether what was drawn before goes
   * @param {number} picture shown under everything drawn; 0: none
   * @param {Shape[]} shapes drawn over those before
   */
  draw(isWhole, picture, shapes) {
    if (isWhole) {
      this.#begin(picture, shapes);
      return;
    }
    this.#shapes.push(...shapes);
    if (this.#shapes.length > 2 * this.#sorted + FEW_SHAPES) {
      this.#shapes = withoutHidden(this.#shapes);
      this.#sorted = this.#shapes.length;
    }
    if (!this.#canvas) this.redraw();
    else if (!this.#isDue) this.#drawShapes(this.#canvas, shapes);
  }

  /** Draws everything again before the next frame; once, however often something changes until then. */
  redraw() {
    if (this.#isDue) return;
    this.#isDue = true;
    requestAnimationFrame(() => {
      this.#isDue = false;
      this.#drawAll();
    });
  }

  /**
   * @param {number} picture
   * @param {Shape[]} shapes
   */
  #begin(picture, shapes) {
    const lowest = shapes.findIndex((shape) => shape.kind !== PICTURE);
    const under = lowest < 0 ? shapes : shapes.slice(0, lowest);
    const placed = under.map((shape) => ({ picture: shape.picture, x: shape.x1, y: shape.y1 }));
    this.#showBackgrounds(picture ? [{ picture, x: 0, y: 0 }, ...placed] : placed);
    this.#shapes = shapes.slice(under.length);
    this.#sorted = this.#shapes.length;
    this.redraw();
  }

  /** @param {Background[]} pictures */
  #showBackgrounds(pictures) {
    pictures.forEach((background, i) => {
      const { picture, x, y } = background;
      const shown = this.#backgrounds[i];
      if (shown?.picture === picture && shown.x === x && shown.y === y) return;
      shown?.image?.remove();
      const image = this.#pictures.element(picture);
      image.style.transform = x || y ? `translate(${Math.round(x)}px, ${Math.round(y)}px)` : '';
      this.#insert(image, this.#backgrounds[i - 1]?.image);
      this.#backgrounds[i] = { ...background, image };
    });
    for (const { image } of this.#backgrounds.splice(pictures.length)) image?.remove();
  }

  /**
   * Under everything drawn, and under the controls that stand here.
   * @param {HTMLElement} element
   * @param {HTMLElement | undefined} under
   */
  #insert(element, under) {
    if (under) under.after(element);
    else this.#element.prepend(element);
  }

  #drawAll() {
    if (!this.#width || !this.#height || (!this.#shapes.length && !this.#canvas)) return;
    const canvas = (this.#canvas ??= this.#addCanvas());
    this.#clear(canvas);
    this.#drawShapes(canvas, this.#shapes);
  }

  /**
   * @param {HTMLCanvasElement} canvas
   * @param {Shape[]} shapes
   */
  #drawShapes(canvas, shapes) {
    const context = canvas.getContext('2d');
    if (!context) return;
    for (const shape of shapes) this.#drawShape(context, shape);
  }

  /** @param {HTMLCanvasElement} canvas */
  #clear(canvas) {
    const scale = devicePixelRatio;
    canvas.width = Math.round(this.#width * scale); // which clears it, and its context's settings
    canvas.height = Math.round(this.#height * scale);
    canvas.style.width = `${this.#width}px`;
    canvas.style.height = `${this.#height}px`;
    const context = canvas.getContext('2d');
    context?.scale(scale, scale);
    if (context) context.lineCap = 'round';
  }

  #addCanvas() {
    const canvas = document.createElement('canvas');
    this.#insert(canvas, this.#backgrounds.at(-1)?.image);
    return canvas;
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {Shape} shape
   */
  #drawShape(context, { kind, x1, y1, x2, y2, penWidth, color, picture }) {
    if (kind === LINE) {
      const middle = penWidth % 2 ? 0.5 : 0;
      context.strokeStyle = color;
      context.lineWidth = Math.max(1, penWidth);
      context.beginPath();
      context.moveTo(Math.round(x1) + middle, Math.round(y1) + middle);
      context.lineTo(Math.round(x2) + middle, Math.round(y2) + middle);
      context.stroke();
    } else if (kind === FILLED_BOX) {
      const grow = Math.floor(Math.max(1, penWidth) / 2);
      const left = Math.round(Math.min(x1, x2)) - grow;
      const top = Math.round(Math.min(y1, y2)) - grow;
      const right = Math.round(Math.max(x1, x2)) + 1 + grow;
      const bottom = Math.round(Math.max(y1, y2)) + 1 + grow;
      context.fillStyle = color;
      context.beginPath();
      context.roundRect(left, top, right - left, bottom - top, grow);
      context.fill();
    } else if (picture) {
      context.drawImage(this.#pictures.image(picture), Math.round(x1), Math.round(y1));
    }
  }
}
