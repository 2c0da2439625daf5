// SPDX-License-Identifier: GPL-2.0-or-later
// The combo box: a list to choose from, with a box to type into where it is no list only.
import { el } from '../dom.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */

let made = 0;

/**
 * @param {string[]} before
 * @param {string[]} rows
 */
const same = (before, rows) =>
  before.length === rows.length && before.every((row, i) => row === rows[i]);

/**
 * @param {Fire} fire
 * @returns {View}
 */
function chooser(fire) {
  const element = el('select');
  /** @type {string[]} */
  let rows = [];
  element.onchange = () => fire('choose', { row: element.selectedIndex });
  return {
    element,
    update(now) {
      if (!same(rows, now.rows)) {
        rows = now.rows;
        element.replaceChildren(...rows.map((row) => el('option', {}, row)));
      }
      element.selectedIndex = now.index;
      element.disabled = !now.usable;
      element.setAttribute('aria-label', now.label);
    },
  };
}

/**
 * @param {Fire} fire
 * @returns {View}
 */
function typeable(fire) {
  const choices = el('datalist', { id: `choices-${made++}` });
  const input = el('input', { type: 'text' });
  input.setAttribute('list', choices.id);
  const element = el('div', { className: 'combo' }, input, choices);
  /** @type {string[]} */
  let rows = [];
  input.oninput = (event) => {
    const typing = event instanceof InputEvent && event.inputType !== 'insertReplacementText';
    const row = rows.indexOf(input.value);
    if (typing || row < 0) fire('type', { text: input.value });
    else fire('choose', { row });
  };
  return {
    element,
    focus: input,
    update(now) {
      if (!same(rows, now.rows)) {
        rows = now.rows;
        choices.replaceChildren(...rows.map((row) => el('option', { value: row })));
      }
      if (input.value !== now.text) input.value = now.text;
      input.disabled = !now.usable;
      input.setAttribute('aria-label', now.label);
    },
  };
}

/**
 * @param {State} state
 * @param {Fire} fire
 * @returns {View}
 */
export const comboView = (state, fire) => (state.listOnly ? chooser(fire) : typeable(fire));
