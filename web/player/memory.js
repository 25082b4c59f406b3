/** What the page remembers on this machine. Where nothing may be kept, it forgets. */

const PREFIX = 'zavdragdrop.';

/** @param {string} key */
function recall(key) {
  try {
    return localStorage.getItem(PREFIX + key);
  } catch {
    return null;
  }
}

/** @param {string} key @param {string} value */
function remember(key, value) {
  try {
    localStorage.setItem(PREFIX + key, value);
  } catch {
    // then not
  }
}

/**
 * Something that is open or folded, as it was left.
 * @param {string} key
 * @param {boolean} isOpen where nothing is remembered
 */
export function recallOpen(key, isOpen) {
  const kept = recall(key);
  return kept === null ? isOpen : kept === 'open';
}

/** @param {string} key @param {boolean} isOpen */
export function rememberOpen(key, isOpen) {
  remember(key, isOpen ? 'open' : 'folded');
}
