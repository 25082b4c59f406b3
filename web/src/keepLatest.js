/**
 * Makes a value the latest of those that are kept, of which there are so many at most.
 * @template Key, Value
 * @param {Map<Key, Value>} kept the one that was used longest ago first
 * @param {Key} key
 * @param {Value} value
 * @param {number} most
 */
export function keepLatest(kept, key, value, most) {
  kept.delete(key);
  kept.set(key, value);
  const [oldest] = kept.keys();
  if (kept.size > most) kept.delete(oldest);
}
