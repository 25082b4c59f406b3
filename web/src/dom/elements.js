/** What windows and dialogs are made with. */

/**
 * @template {keyof HTMLElementTagNameMap} Name
 * @param {Name} name
 * @param {string} className
 * @param {(Node | string)[]} children
 * @returns {HTMLElementTagNameMap[Name]}
 */
export function make(name, className, ...children) {
  const element = document.createElement(name);
  element.className = className;
  element.append(...children);
  return element;
}

/**
 * What has the focus in the shadow root, or the document, that a node belongs to.
 * @param {Node} node
 */
export function focusedIn(node) {
  const root = /** @type {Document | ShadowRoot} */ (node.getRootNode());
  return /** @type {HTMLElement | null} */ (root.activeElement);
}
