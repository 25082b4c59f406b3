/**
 * Registers <zav-drag-drop>.
 */
import { ZavDragDropElement } from './ZavDragDropElement.js';

if (!customElements.get('zav-drag-drop')) {
  customElements.define('zav-drag-drop', ZavDragDropElement);
}

export { ZavDragDropElement };
