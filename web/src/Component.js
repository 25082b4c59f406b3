/**
 * One component in the page's module, with the view that shows it: from an item's initialisation
 * until it is disposed.
 */
import { artwork, artworkFile } from './dom/artwork.js';
import { View } from './dom/View.js';

/** @type {Map<string, HTMLImageElement>} by url; shared by all items of the page */
const artworkImages = new Map();

/** @param {string} url */
function artworkImage(url) {
  let image = artworkImages.get(url);
  if (!image) {
    image = new Image();
    image.src = url;
    artworkImages.set(url, image);
  }
  return image;
}

export class Component {
  #runtime;
  #number;
  #item;

  /**
   * @param {import('./runtime/Runtime.js').Runtime} runtime
   * @param {ShadowRoot} shadow
   * @param {string | URL} artworkFolder
   * @param {(byCandidate: boolean) => void} acted
   */
  constructor(runtime, shadow, artworkFolder, acted) {
    this.#runtime = runtime;
    const { number, item, view } = runtime.create(
      (given) => new View(shadow, runtime.exports, given, acted),
    );
    this.#number = number;
    this.#item = item;
    this.view = /** @type {View} */ (view);
    for (const [tag, [width, height]] of Object.entries(artwork)) {
      const image = artworkImage(String(new URL(artworkFile(tag), artworkFolder)));
      runtime.exports.addResource(number, tag, this.view.pictures.add(image, width, height));
    }
  }

  /** The window that the page stands for. */
  get hostWindow() {
    return this.#runtime.exports.hostWindow(this.#number);
  }

  /** Whether the component is in the middle of something, as while it calls its host. */
  get busy() {
    return this.#runtime.exports.busy(this.#number) !== 0;
  }

  /**
   * @param {string} path
   * @param {Uint8Array} bytes
   */
  addFile(path, bytes) {
    this.#runtime.exports.addFile(this.#number, path, bytes);
  }

  /**
   * @param {string} path
   * @param {HTMLImageElement | null} image null: what is there is no picture
   */
  addPicture(path, image) {
    const isPicture = image !== null && image.naturalWidth > 0 && image.naturalHeight > 0;
    const picture = isPicture ? this.view.pictures.add(image) : { number: 0, width: 0, height: 0 };
    this.view.pictures.name(path, picture.number);
    this.#runtime.exports.addPicture(this.#number, path, picture);
  }

  /**
   * @param {string} progId
   * @param {() => object} create
   */
  registerClass(progId, create) {
    const factory = this.#runtime.objects.keepObject({ Create: create });
    this.#runtime.exports.registerClass(this.#number, progId, factory);
  }

  /**
   * Calls a member of the component by its name. Throws AutomationError.
   * @param {string} member
   * @param {unknown[]} args
   */
  call(member, args) {
    return this.#runtime.objects.invoke(this.#item, member, args);
  }

  /**
   * @param {string} property
   * @param {unknown} value
   */
  put(property, value) {
    this.#runtime.objects.invoke(this.#item, property, [value], true);
  }

  dispose() {
    this.#runtime.dispose(this.#number, this.#item);
    this.view.dispose();
  }
}
