// SPDX-License-Identifier: GPL-2.0-or-later
// Message boxes, the error dialog, the printed page.
import { el } from './dom.js';
import { PageWindow } from './window.js';

/** @typedef {import('./program.js').Program} Program */

const buttons = 7;
const kinds = /** @type {Record<number, [string, number][]>} */ ({
  0: [['OK', 1]],
  1: [
    ['OK', 1],
    ['Cancel', 2],
  ],
  4: [
    ['Yes', 6],
    ['No', 7],
  ],
});
const icons = /** @type {Record<number, [string, string]>} */ ({
  16: ['✖', 'Error'],
  48: ['⚠', 'Warning'],
  64: ['ℹ', 'Information'],
});

/**
 * @param {Program} program
 * @param {{name: number, text: string, style: number, title: string}} told
 */
export function showBox(program, { name, text, style, title }) {
  const choices = kinds[style & buttons] ?? kinds[0];
  const answer = (/** @type {number} */ value) => {
    if (program.top !== name) return;
    window.gone();
    program.endWait(name, value);
  };
  const away = choices.length === 1 ? choices[0][1] : choices[1][1];
  const window = new PageWindow({
    title,
    modal: true,
    role: 'alertdialog',
    className: 'box',
    name: 'MsgBox',
    close: () => answer(away),
  });
  const [mark, meaning] = icons[style & 112] ?? ['', ''];
  const words = el('p', { className: 'box-text', id: `box-${name}` }, text);
  window.element.setAttribute('aria-describedby', words.id);
  const row = el('div', { className: 'box-buttons' });
  for (const [caption, value] of choices) {
    row.append(el('button', { type: 'button', onclick: () => answer(value) }, caption));
  }
  const content = el('div', { className: 'box-content' }, words);
  if (mark)
    content.prepend(
      el('span', { className: 'box-icon', role: 'img', 'aria-label': meaning }, mark),
    );
  window.body.append(content, row);
  window.element.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') answer(away);
  });
  window.centre();
  /** @type {HTMLElement} */ (row.firstElementChild).focus();
}

/** The one error dialog: it stays until it is closed, and nothing is asked meanwhile. */
export class ErrorDialog {
  /** @param {() => void} closed */
  constructor(closed) {
    this.closed = closed;
    /** @type {PageWindow|null} */
    this.window = null;
  }

  get isOpen() {
    return this.window !== null;
  }

  /** @param {{text: string, visible: boolean}} told */
  show({ text, visible }) {
    if (!visible) return this.close();
    if (!this.window) {
      this.window = new PageWindow({
        title: 'Error',
        className: 'trail',
        name: 'frmErrorDialog',
        always: true,
        close: () => this.close(),
      });
      this.text = el('textarea', { readOnly: true, rows: 12, cols: 70, 'aria-label': 'Error' });
      this.window.body.append(
        this.text,
        el(
          'div',
          { className: 'box-buttons' },
          el('button', { type: 'button', onclick: () => this.close() }, 'Close'),
        ),
      );
      this.window.centre();
    }
    if (this.text) this.text.value = text;
    this.window.raise();
    this.window.closeButton.focus();
  }

  close() {
    this.window?.gone();
    this.window = null;
    this.closed();
  }
}

/** @param {{text: string, points: number}} told */
export function printText({ text, points }) {
  const sheet = document.getElementById('print');
  if (!sheet) return;
  sheet.textContent = text;
  sheet.style.fontSize = points ? `${points}pt` : '';
  window.print();
}
