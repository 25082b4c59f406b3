/**
 * The element of the page with that id, which must be of that class.
 * @template {HTMLElement} Type
 * @param {string} id
 * @param {new () => Type} type
 * @returns {Type}
 */
export function byId(id, type) {
  const found = document.getElementById(id);
  if (!(found instanceof type)) throw new Error(`#${id}: expected ${type.name}`);
  return found;
}

/**
 * @template {keyof HTMLElementTagNameMap} Tag
 * @param {Tag} tag
 * @param {string} className
 * @param {(string | Node)[]} content
 * @returns {HTMLElementTagNameMap[Tag]}
 */
export function make(tag, className, ...content) {
  const element = document.createElement(tag);
  element.className = className;
  element.append(...content);
  return element;
}
