/**
 * What tests find in their pages: hosts, by the name of their class.
 */
import '/package/zav-drag-drop.js';

import { ExamHost } from './ExamHost.js';
import { HostObjects } from './HostObjects.js';

Object.assign(window, { ExamHost, HostObjects });
