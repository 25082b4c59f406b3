/**
 * The support object of an item folder at a url: names files by their urls.
 */

const SUPPORT_FOLDER = 'zav-support:/';

export class FolderSupport {
  #folder;

  /** @param {string | URL} folder the url of a folder, with or without a slash at its end */
  constructor(folder) {
    this.#folder = String(folder).replace(/\/?$/, '/');
  }

  /**
   * A file of texts that stands in the folder itself.
   * @param {string} name
   */
  GetLocalizePath(name) {
    return this.#url(name);
  }

  /**
   * An item's picture. Either slash parts folders; a name that leads out of the folder has no place.
   * @param {string} name
   */
  GetGraphicsPath(name) {
    const parts = name.split(/[\\/]/).filter((part) => part && part !== '.');
    if (!parts.length || parts.includes('..')) return '';
    return this.#url(`graphics/${parts.map(encodeURIComponent).join('/')}`);
  }

  /** Where the component keeps its own pictures; nothing is ever fetched from there. */
  GetSupportFileDir() {
    return SUPPORT_FOLDER;
  }

  /** The url of the item itself. */
  get itemUrl() {
    return this.#url('item.xml');
  }

  /** @param {string} path */
  #url(path) {
    return this.#folder + path;
  }
}
