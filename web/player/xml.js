/**
 * XML with one element a line, for reading; it may have several elements side by side. Elements with
 * text in them stay on a line, so that no blank is added to a text. What is not XML stays as it is.
 * @param {string} xml
 */
export function prettyXml(xml) {
  const { documentElement } = new DOMParser().parseFromString(`<all>${xml}</all>`, 'text/xml');
  if (documentElement.querySelector('parsererror') || hasText(documentElement)) return xml;
  return [...documentElement.children].flatMap((element) => lines(element, '')).join('\n');
}

/** @param {Element} element */
function hasText(element) {
  return [...element.childNodes].some(
    (node) => node.nodeType !== Node.ELEMENT_NODE && node.textContent?.trim(),
  );
}

/**
 * @param {Element} element
 * @param {string} indent
 * @returns {string[]}
 */
function lines(element, indent) {
  const text = new XMLSerializer().serializeToString(element);
  if (hasText(element) || element.childElementCount === 0) return [indent + text];
  return [
    indent + new XMLSerializer().serializeToString(element.cloneNode()).replace(/\/>$/, '>'),
    ...[...element.children].flatMap((child) => lines(child, `${indent}  `)),
    `${indent}</${element.nodeName}>`,
  ];
}
