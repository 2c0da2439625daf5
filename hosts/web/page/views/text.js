// SPDX-License-Identifier: GPL-2.0-or-later
// Text boxes, with caret and selection kept alike on both sides, and rich text.
import { el, setAttribute } from '../dom.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */

/** @param {string} text with the tools' line ends */
const shown = (text) => text.replaceAll('\r\n', '\n');

/**
 * @param {string} text with the tools' line ends
 * @param {number} offset
 */
const withoutReturns = (text, offset) => shown(text.slice(0, offset)).length;

/**
 * @param {string} text as it is shown
 * @param {number} offset
 */
const withReturns = (text, offset) => text.slice(0, offset).replaceAll('\n', '\r\n').length;

/**
 * @param {State} state
 * @param {Fire} fire
 * @returns {View}
 */
export function textView(state, fire) {
  const lines = Boolean(state.lines);
  const element = lines ? el('textarea', { spellcheck: false }) : el('input', { type: 'text' });
  element.autocomplete = 'off';
  let known = '';
  const told = () => {
    const value = element.value;
    const start = element.selectionStart ?? 0;
    const end = element.selectionEnd ?? start;
    return lines
      ? {
          text: value.replaceAll('\n', '\r\n'),
          start: withReturns(value, start),
          length: withReturns(value, end) - withReturns(value, start),
        }
      : { text: value, start, length: end - start };
  };
  const tell = () => {
    const now = told();
    if (JSON.stringify(now) === known) return;
    known = JSON.stringify(now);
    fire('edit', now);
  };
  element.addEventListener('input', tell);
  element.addEventListener('select', tell);
  for (const event of ['keyup', 'pointerup', 'focus']) {
    element.addEventListener(event, () => setTimeout(tell));
  }
  element.addEventListener('blur', tell);
  return {
    element,
    update(now) {
      const text = lines ? shown(now.text) : now.text;
      if (element.value !== text) element.value = text;
      const start = lines ? withoutReturns(now.text, now.start) : now.start;
      const end = lines ? withoutReturns(now.text, now.start + now.length) : start + now.length;
      if (element.selectionStart !== start || element.selectionEnd !== end) {
        element.setSelectionRange(start, end);
      }
      known = JSON.stringify(told());
      element.readOnly = now.locked;
      element.disabled = !now.usable;
      setAttribute(element, 'aria-label', now.label);
    },
  };
}

/** @returns {View} */
export function richTextView() {
  const element = el('div', { className: 'rich', tabIndex: 0, role: 'document' });
  return {
    element,
    update(now) {
      setAttribute(element, 'aria-label', now.label || null);
      let paragraph = el('p');
      const paragraphs = [paragraph];
      for (const run of now.runs) {
        const parts = shown(run.text).split('\n');
        parts.forEach((/** @type {string} */ part, /** @type {number} */ i) => {
          if (i > 0) paragraphs.push((paragraph = el('p')));
          const span = el('span', {}, part);
          if (run.bold) span.classList.add('bold');
          if (run.underline) span.classList.add('underline');
          if (run.points) span.style.fontSize = `${run.points * 1.25}pt`;
          paragraph.style.marginLeft = `${run.indent}px`;
          paragraph.append(span);
        });
      }
      element.replaceChildren(...paragraphs);
    },
  };
}
