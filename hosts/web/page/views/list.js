// SPDX-License-Identifier: GPL-2.0-or-later
// The list box: only the rows in sight are elements. The tools decide what a click selects.
import { el, setAttribute } from '../dom.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */

const rowHeight = 20;
const searchPause = 1000;
let made = 0;

class ListView {
  /** @param {Fire} fire */
  constructor(fire) {
    this.fire = fire;
    this.prefix = `list-${made++}-`;
    this.rows = el('div', { className: 'list-rows', role: 'presentation' });
    this.element = el('div', { className: 'list', role: 'listbox', tabIndex: 0 }, this.rows);
    /** @type {string[]} */
    this.texts = [];
    /** @type {Map<number, HTMLElement>} rows in sight */
    this.shown = new Map();
    /** @type {Set<number>} */
    this.selected = new Set();
    this.index = -1;
    this.extended = false;
    this.usable = true;
    this.typed = '';
    this.typedAt = 0;
    this.element.addEventListener('scroll', () => this.draw());
    this.element.addEventListener('click', (event) => this.click(this.rowAt(event), event));
    this.element.addEventListener('dblclick', (event) =>
      fire('double', { row: this.rowAt(event) }),
    );
    this.element.addEventListener('keydown', (event) => this.key(event));
    new ResizeObserver(() => this.draw()).observe(this.element);
  }

  /** @param {MouseEvent} event */
  rowAt(event) {
    const top = this.rows.getBoundingClientRect().top;
    const row = Math.floor((event.clientY - top) / this.height());
    return row < this.texts.length ? row : -1;
  }

  height() {
    return this.rows.getBoundingClientRect().height / Math.max(1, this.texts.length) || rowHeight;
  }

  /**
   * @param {number} row
   * @param {MouseEvent|KeyboardEvent} event
   */
  click(row, event) {
    if (!this.usable) return;
    // A finger has no Ctrl key: each tap adds a row to the others or takes it away.
    const finger = event instanceof PointerEvent && event.pointerType === 'touch';
    this.fire('click', {
      row,
      'control-key': event.ctrlKey || event.metaKey || (finger && this.extended),
      'shift-key': event.shiftKey,
    });
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    const last = this.texts.length - 1;
    const page = Math.max(1, Math.floor(this.element.clientHeight / rowHeight) - 1);
    const moves = /** @type {Record<string, number>} */ ({
      ArrowUp: this.index - 1,
      ArrowDown: this.index + 1,
      Home: 0,
      End: last,
      PageUp: this.index - page,
      PageDown: this.index + page,
    });
    if (last < 0) return;
    if (event.key in moves) {
      event.preventDefault();
      const row = Math.max(0, Math.min(moves[event.key], last));
      this.fire('click', { row, 'control-key': false, 'shift-key': event.shiftKey });
    } else if (event.key === ' ' && this.typed === '' && this.index >= 0) {
      event.preventDefault();
      this.fire('click', { row: this.index, 'control-key': this.extended, 'shift-key': false });
    } else if (event.key === 'F2' && this.index >= 0) {
      // What a double click does, for those who have no mouse.
      this.fire('double', { row: this.index });
    } else if (event.key.length === 1 && !event.ctrlKey && !event.altKey && !event.metaKey) {
      this.search(event.key);
    }
  }

  /** @param {string} letter */
  search(letter) {
    const now = performance.now();
    this.typed = (now - this.typedAt < searchPause ? this.typed : '') + letter.toLowerCase();
    this.typedAt = now;
    const from = this.typed.length > 1 ? this.index : this.index + 1;
    for (let i = 0; i < this.texts.length; i++) {
      const row = (Math.max(0, from) + i) % this.texts.length;
      if (!this.texts[row].toLowerCase().startsWith(this.typed)) continue;
      this.fire('click', { row, 'control-key': false, 'shift-key': false });
      break;
    }
    setTimeout(() => {
      if (performance.now() - this.typedAt >= searchPause) this.typed = '';
    }, searchPause);
  }

  draw() {
    const first = Math.max(0, Math.floor(this.element.scrollTop / rowHeight) - 4);
    const count = Math.ceil((this.element.clientHeight || 200) / rowHeight) + 8;
    const end = Math.min(this.texts.length, first + count);
    for (const [row, option] of this.shown) {
      if (row >= first && row < end) continue;
      option.remove();
      this.shown.delete(row);
    }
    for (let row = first; row < end; row++) this.drawRow(this.option(row), row);
    const current = this.index >= first && this.index < first + count;
    setAttribute(this.element, 'aria-activedescendant', current ? this.prefix + this.index : null);
  }

  /**
   * A row keeps its element while it is in sight: a click needs the one that it began on.
   * @param {number} row
   */
  option(row) {
    const known = this.shown.get(row);
    if (known) return known;
    const made = el('div', { className: 'list-row', role: 'option' });
    this.shown.set(row, made);
    this.rows.append(made);
    return made;
  }

  /**
   * @param {HTMLElement} option
   * @param {number} row
   */
  drawRow(option, row) {
    const selected = this.extended ? this.selected.has(row) : row === this.index;
    option.id = this.prefix + row;
    if (option.textContent !== this.texts[row]) option.textContent = option.title = this.texts[row];
    option.setAttribute('aria-selected', String(selected));
    option.setAttribute('aria-posinset', String(row + 1));
    option.setAttribute('aria-setsize', String(this.texts.length));
    option.style.top = `${row * rowHeight}px`;
  }

  /** @param {State} now */
  update(now) {
    const moved = now.index !== this.index;
    this.texts = now.rows;
    this.index = now.index;
    this.extended = Boolean(now.extended);
    this.selected = new Set(now.selected ?? []);
    this.usable = now.usable;
    this.rows.style.height = `${this.texts.length * rowHeight}px`;
    setAttribute(this.element, 'aria-label', now.label);
    setAttribute(this.element, 'aria-multiselectable', this.extended ? 'true' : null);
    setAttribute(this.element, 'aria-disabled', now.usable ? null : 'true');
    if (moved && this.index >= 0) this.scrollTo(this.index);
    this.draw();
  }

  /** @param {number} row */
  scrollTo(row) {
    const top = row * rowHeight;
    const list = this.element;
    if (top < list.scrollTop) list.scrollTop = top;
    const bottom = top + rowHeight - list.clientHeight;
    if (bottom > list.scrollTop) list.scrollTop = bottom;
  }
}

/**
 * @param {State} _state
 * @param {Fire} fire
 * @returns {View}
 */
export const listView = (_state, fire) => new ListView(fire);
