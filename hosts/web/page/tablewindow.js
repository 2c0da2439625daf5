// SPDX-License-Identifier: GPL-2.0-or-later
// An attribute table: only the rows in sight are elements.
import { el } from './dom.js';
import { PageWindow } from './window.js';

/** @typedef {import('./program.js').Program} Program */
/** @typedef {{place: number, selected: boolean, cells: string[]}} Row */

const rowHeight = 22;
// Browsers draw nothing below some 17 million pixels.
const mostHeight = 8e6;

export class TableWindow {
  /**
   * @param {Program} program
   * @param {{name: number, title: string}} told
   */
  constructor(program, { name, title }) {
    this.program = program;
    this.name = name;
    this.count = 0;
    this.anchor = 0;
    this.current = 0;
    this.sorted = -1;
    this.descending = false;
    this.window = new PageWindow({
      title: `Attributes of ${title}`,
      className: 'table sizable',
      name: 'Table',
      close: () => program.do(0, 'close-table', { window: name }),
    });
    this.head = el('div', { className: 'grid-head', role: 'row' });
    this.rows = el('div', { className: 'grid-rows', role: 'rowgroup' });
    this.grid = el(
      'div',
      { className: 'grid', role: 'grid', tabIndex: 0, 'aria-label': `Attributes of ${title}` },
      el('div', { role: 'rowgroup', className: 'grid-top' }, this.head),
      this.rows,
    );
    this.grid.setAttribute('aria-multiselectable', 'true');
    this.foot = el('div', { className: 'grid-foot', role: 'status' });
    const only = el('input', { type: 'checkbox' });
    only.onchange = () => {
      if (!program.do(0, 'selected-only', { window: name, on: only.checked })) {
        only.checked = !only.checked;
      }
      this.update();
    };
    this.window.body.append(
      this.grid,
      el('div', { className: 'grid-bar' }, el('label', {}, only, ' Selected rows only'), this.foot),
    );
    this.grid.addEventListener('scroll', () => this.draw());
    this.rows.addEventListener('pointerdown', (event) => this.click(event));
    this.grid.addEventListener('keydown', (event) => this.key(event));
    new ResizeObserver(() => this.draw()).observe(this.grid);
    this.update();
    this.window.centre();
    this.grid.focus();
  }

  update() {
    const told = this.program.ask('rows', { window: this.name, first: 0, count: 0 });
    if (!told) return;
    this.count = told.count;
    this.fields = told.fields;
    this.grid.setAttribute('aria-rowcount', String(this.count + 1));
    this.foot.textContent = `${told.selected} of ${told.total} rows selected`;
    this.head.replaceChildren(
      ...told.fields.map((/** @type {any} */ field) => this.heading(field)),
    );
    this.rows.style.height = `${this.height()}px`;
    this.draw();
  }

  /** @param {{field: number, name: string, number: boolean}} field */
  heading({ field, name, number }) {
    const sorted = this.sorted === field;
    const button = el(
      'button',
      { type: 'button', tabIndex: -1 },
      name,
      sorted ? (this.descending ? ' ▾' : ' ▴') : '',
    );
    button.onclick = () => this.sort(field);
    const cell = el('div', { className: 'grid-cell', role: 'columnheader' }, button);
    cell.setAttribute(
      'aria-sort',
      sorted ? (this.descending ? 'descending' : 'ascending') : 'none',
    );
    cell.classList.toggle('number', number);
    return cell;
  }

  /** @param {number} field */
  sort(field) {
    const descending = this.sorted === field && !this.descending;
    if (!this.program.do(0, 'sort', { window: this.name, field, descending })) return;
    this.sorted = field;
    this.descending = descending;
    this.update();
  }

  height() {
    return Math.min(this.count * rowHeight, mostHeight);
  }

  /** The row at the top of what is in sight. */
  first() {
    const seen = Math.max(1, this.grid.clientHeight - rowHeight);
    if (this.count * rowHeight <= mostHeight) return Math.floor(this.grid.scrollTop / rowHeight);
    const part = this.grid.scrollTop / Math.max(1, this.height() - seen);
    return Math.round(Math.min(1, part) * Math.max(0, this.count - Math.floor(seen / rowHeight)));
  }

  draw() {
    const first = this.first();
    const count = Math.ceil((this.grid.clientHeight || 300) / rowHeight) + 1;
    const told = this.program.ask('rows', { window: this.name, first, count });
    if (!told) return;
    const top = this.count * rowHeight <= mostHeight ? first * rowHeight : this.grid.scrollTop;
    this.rows.replaceChildren(
      ...told.rows.map((/** @type {Row} */ row, /** @type {number} */ i) => {
        const cells = row.cells.map((text, column) => {
          const cell = el('div', { className: 'grid-cell', role: 'gridcell', title: text }, text);
          cell.classList.toggle('number', this.fields?.[column]?.number);
          return cell;
        });
        const line = el(
          'div',
          {
            className: 'grid-row',
            role: 'row',
            id: `row-${this.name}-${row.place}`,
            'aria-rowindex': row.place + 2,
            'aria-selected': row.selected,
            'data-place': row.place,
          },
          ...cells,
        );
        line.classList.toggle('current', row.place === this.current);
        line.style.top = `${top + i * rowHeight}px`;
        return line;
      }),
    );
  }

  /** @param {MouseEvent} event */
  click(event) {
    const row = event.target instanceof Element ? event.target.closest('.grid-row') : null;
    if (row instanceof HTMLElement) this.choose(Number(row.dataset.place), event);
  }

  /**
   * @param {number} place
   * @param {MouseEvent|KeyboardEvent} event
   */
  choose(place, event) {
    this.current = place;
    let message = {
      first: place,
      last: place,
      method: event.ctrlKey || event.metaKey ? 'switch' : 'new',
    };
    if (event.shiftKey) {
      message = {
        first: Math.min(place, this.anchor),
        last: Math.max(place, this.anchor),
        method: 'new',
      };
    } else this.anchor = place;
    this.program.do(0, 'select', { window: this.name, ...message });
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    const page = Math.max(1, Math.floor(this.grid.clientHeight / rowHeight) - 2);
    const moves = /** @type {Record<string, number>} */ ({
      ArrowDown: this.current + 1,
      ArrowUp: this.current - 1,
      PageDown: this.current + page,
      PageUp: this.current - page,
      Home: 0,
      End: this.count - 1,
    });
    if (event.key in moves) {
      this.current = Math.max(0, Math.min(moves[event.key], this.count - 1));
      this.reveal();
    } else if (event.key === ' ') this.choose(this.current, event);
    else return;
    event.preventDefault();
  }

  /** Scrolls so that the current row is in sight. */
  reveal() {
    const seen = this.grid.clientHeight - 2 * rowHeight;
    if (this.count * rowHeight <= mostHeight) {
      const top = this.current * rowHeight;
      if (top < this.grid.scrollTop) this.grid.scrollTop = top;
      if (top > this.grid.scrollTop + seen) this.grid.scrollTop = top - seen;
    } else {
      this.grid.scrollTop = (this.current / this.count) * (this.height() - seen);
    }
    this.draw();
  }

  /** @param {boolean} shown */
  show(shown) {
    this.window.element.hidden = !shown;
    if (shown) this.window.raise();
  }

  gone() {
    this.window.gone();
  }
}
