/**
 * XML with one element a line, for reading. Elements with text in them stay on a line, so that no
 * blank is added to a text. What is not XML stays as it is.
 * @param {string} xml
 */
export function prettyXml(xml) {
  const document = new DOMParser().parseFromString(xml, 'text/xml');
  if (!document.documentElement || document.querySelector('parsererror')) return xml;
  return lines(document.documentElement, '').join('\n');
}

/**
 * @param {Element} element
 * @param {string} indent
 * @returns {string[]}
 */
function lines(element, indent) {
  const text = new XMLSerializer().serializeToString(element);
  const hasText = [...element.childNodes].some((node) => node.nodeType !== Node.ELEMENT_NODE);
  if (hasText || element.childElementCount === 0) return [indent + text];
  return [
    indent + new XMLSerializer().serializeToString(element.cloneNode()).replace(/\/>$/, '>'),
    ...[...element.children].flatMap((child) => lines(child, `${indent}  `)),
    `${indent}</${element.nodeName}>`,
  ];
}
