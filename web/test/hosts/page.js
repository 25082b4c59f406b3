/**
 * What tests find in their pages: hosts, by the name of their class.
 */
import '/package/zav-drag-drop.js';

import { ExamHost } from './ExamHost.js';

Object.assign(window, { ExamHost });
