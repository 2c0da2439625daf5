// SPDX-License-Identifier: GPL-2.0-or-later
// One view for each kind of control, in the order in which the tools number them.
import { buttonView, checkView, optionView } from './buttons.js';
import { frameView, labelView, pictureView } from './captions.js';
import { comboView } from './combo.js';
import { listView } from './list.js';
import { richTextView, textView } from './text.js';
import { treeView } from './tree.js';

/** @type {((state: import('./view.js').State, fire: import('./view.js').Fire) =>
 *   import('./view.js').View)[]} */
export const viewOfKind = [
  labelView,
  textView,
  listView,
  comboView,
  buttonView,
  optionView,
  checkView,
  frameView,
  pictureView,
  treeView,
  richTextView,
];
