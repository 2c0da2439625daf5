// SPDX-License-Identifier: GPL-2.0-or-later
// The contents: data frames, groups, layers and tables, in the three views of a map application.
import { el, setAttribute } from './dom.js';
import { legendOf } from './legend.js';

/** @typedef {import('./program.js').Program} Program */
/**
 * @typedef {{id: number, depth: number, kind: string, name: string, checked: boolean,
 *   expanded: boolean, picked: boolean, valid: boolean, symbols?: any, definition?: string,
 *   selected?: number, source?: string, path?: string, rows?: number, problem?: string,
 *   extent?: number[], picture?: string, opacity?: number, revision?: number,
 *   attribution?: string}} Item
 * @typedef {{id: number, name: string, focus: boolean, visible: boolean, expanded: boolean,
 *   shown?: number[], items: Item[]}} Frame
 */

const tabs = ['Display', 'Source', 'Selection'];

/** @param {string} path a Windows path */
const folderOf = (path) => path.slice(0, Math.max(0, path.lastIndexOf('\\')));

export class Contents {
  /** @param {Program} program */
  constructor(program) {
    this.program = program;
    /** @type {Frame[]} */
    this.frames = [];
    this.tab = '';
    /** @type {Map<number, boolean>} opened or closed by the student */
    this.open = new Map();
    this.anchor = 0;
    this.current = '';
    this.tabBar = el('div', { className: 'tabs', role: 'tablist', 'aria-label': 'Contents' });
    this.tree = el('div', {
      className: 'contents-tree',
      role: 'tree',
      tabIndex: 0,
      id: 'contents-tree',
      'aria-label': 'Layers',
      'aria-multiselectable': 'true',
    });
    this.panel = el('div', { className: 'contents-panel', role: 'tabpanel' }, this.tree);
    this.element = el(
      'nav',
      { className: 'contents', 'aria-label': 'Contents' },
      this.tabBar,
      this.panel,
    );
    for (const tab of tabs) {
      this.tabBar.append(
        el(
          'button',
          {
            type: 'button',
            role: 'tab',
            onclick: () => this.program.do(0, 'tab', { name: tab }),
          },
          tab,
        ),
      );
    }
    this.tabBar.addEventListener('keydown', (event) => this.tabKey(event));
    this.tree.addEventListener('keydown', (event) => this.key(event));
    this.tree.addEventListener('click', (event) => {
      if (event.target === this.tree) this.program.do(0, 'pick', { items: [] });
    });
  }

  /** @param {{tab: string, frames: Frame[]}} contents */
  show({ tab, frames }) {
    this.frames = frames;
    this.tab = tab;
    for (const button of this.tabBar.children) {
      const front = button.textContent === tab;
      button.setAttribute('aria-selected', String(front));
      /** @type {HTMLElement} */ (button).tabIndex = front ? 0 : -1;
    }
    this.panel.setAttribute('aria-label', tab);
    const top = this.tree.scrollTop;
    this.tree.replaceChildren();
    const draw = { Display: this.display, Source: this.sources, Selection: this.selection };
    (draw[/** @type {'Display'} */ (tab)] ?? this.display).call(this);
    this.tree.scrollTop = top;
    this.showCurrent();
  }

  display() {
    for (const frame of this.frames) {
      this.addFrame(frame);
      if (!this.isOpen(frame.id, frame.expanded)) continue;
      let closed = Infinity;
      for (const item of frame.items) {
        if (item.depth > closed) continue;
        const open = this.isOpen(item.id, item.expanded);
        closed = item.kind === 'group' && !open ? item.depth : Infinity;
        this.addItem(item, item.depth + 2, true);
        if (item.symbols && open) this.tree.append(legendOf(item.symbols, item.depth + 3));
      }
    }
  }

  sources() {
    for (const frame of this.frames) {
      this.addFrame(frame);
      /** @type {Map<string, Item[]>} */
      const places = new Map();
      for (const item of frame.items.filter((one) => one.kind !== 'group')) {
        const place = item.path ? folderOf(item.path) : 'Pictures';
        places.set(place, [...(places.get(place) ?? []), item]);
      }
      for (const [place, items] of places) {
        this.tree.append(el('div', { className: 'source-place', role: 'presentation' }, place));
        items.forEach((item) => this.addItem(item, 3, false));
      }
    }
  }

  selection() {
    for (const frame of this.frames) {
      this.addFrame(frame);
      for (const item of frame.items.filter((one) => one.selected !== undefined)) {
        this.addItem(item, 2, false, ` (${item.selected})`);
      }
    }
  }

  /**
   * @param {number} id
   * @param {boolean} otherwise
   */
  isOpen(id, otherwise) {
    return this.open.get(id) ?? otherwise;
  }

  /** @param {Frame} frame */
  addFrame(frame) {
    const open = this.isOpen(frame.id, frame.expanded);
    const node = this.addNode(`frame${frame.id}`, 1, frame.name);
    node.classList.add('frame-node');
    node.classList.toggle('focus-frame', frame.focus);
    node.setAttribute('aria-expanded', String(open));
    node.prepend(this.opener(frame.id, open));
    if (frame.focus) node.setAttribute('aria-description', 'in focus');
    node.addEventListener('click', () => this.program.do(0, 'focus', { frame: frame.id }));
  }

  /**
   * @param {Item} item
   * @param {number} level
   * @param {boolean} withBox
   * @param {string} [more]
   */
  addItem(item, level, withBox, more = '') {
    const node = this.addNode(`item${item.id}`, level, item.name + more);
    node.dataset.item = String(item.id);
    node.dataset.kind = item.kind;
    node.setAttribute('aria-selected', String(item.picked));
    node.classList.toggle('invalid', !item.valid);
    node.title = this.tipOf(item);
    if (item.definition)
      node.append(el('span', { className: 'mark', title: item.definition }, '▼'));
    if (!item.valid) node.append(el('span', { className: 'mark' }, '!'));
    if (withBox && item.kind !== 'table') node.prepend(this.box(item));
    if (withBox) {
      const has = item.kind === 'group' || item.symbols;
      const open = this.isOpen(item.id, item.expanded);
      node.prepend(has ? this.opener(item.id, open) : el('span', { className: 'opener' }));
      if (has) node.setAttribute('aria-expanded', String(open));
    }
    node.addEventListener('click', (event) => this.click(item.id, event));
  }

  /** @param {Item} item */
  tipOf(item) {
    if (item.problem) return `The data can't be reached: ${item.problem}`;
    return [item.source, item.path, item.rows === undefined ? '' : `${item.rows} rows`]
      .filter(Boolean)
      .join('\n');
  }

  /** @param {Item} item */
  box(item) {
    const box = el('input', {
      type: 'checkbox',
      checked: item.checked,
      tabIndex: -1,
      'aria-label': `Show ${item.name}`,
    });
    box.onclick = (event) => {
      event.stopPropagation();
      this.program.do(0, 'check', { item: item.id, on: box.checked });
    };
    return box;
  }

  /**
   * @param {number} id
   * @param {boolean} open
   */
  opener(id, open) {
    const opener = el('span', { className: 'opener', 'aria-hidden': 'true' }, open ? '▾' : '▸');
    opener.onclick = (event) => {
      event.stopPropagation();
      this.toggle(id, !open);
    };
    return opener;
  }

  /**
   * @param {number} id
   * @param {boolean} open
   */
  toggle(id, open) {
    this.open.set(id, open);
    this.show({ tab: this.tab, frames: this.frames });
  }

  /**
   * @param {string} id
   * @param {number} level
   * @param {string} name
   */
  addNode(id, level, name) {
    const node = el(
      'div',
      { className: 'node', role: 'treeitem', id, 'aria-level': level, 'aria-label': name },
      el('span', { className: 'node-name' }, name),
    );
    node.style.paddingLeft = `${(level - 1) * 14 + 2}px`;
    this.tree.append(node);
    return node;
  }

  picked() {
    return this.frames
      .flatMap((frame) => frame.items.filter((item) => item.picked))
      .map((item) => item.id);
  }

  /**
   * @param {number} id
   * @param {MouseEvent|KeyboardEvent} event
   */
  click(id, event) {
    event.stopPropagation();
    const now = this.picked();
    let items = [id];
    if (event.ctrlKey || event.metaKey) {
      items = now.includes(id) ? now.filter((one) => one !== id) : [...now, id];
    } else if (event.shiftKey && this.anchor) {
      const order = this.nodes()
        .map((node) => Number(node.dataset.item))
        .filter(Boolean);
      const [from, to] = [order.indexOf(this.anchor), order.indexOf(id)].sort((a, b) => a - b);
      items = order.slice(Math.max(0, from), to + 1);
    }
    if (!event.shiftKey) this.anchor = id;
    this.current = `item${id}`;
    this.program.do(0, 'pick', { items });
  }

  nodes() {
    return /** @type {HTMLElement[]} */ ([...this.tree.querySelectorAll('.node')]);
  }

  showCurrent() {
    const nodes = this.nodes();
    const node = nodes.find((one) => one.id === this.current) ?? nodes[0];
    setAttribute(this.tree, 'aria-activedescendant', node ? node.id : null);
    nodes.forEach((one) => one.classList.toggle('current', one === node));
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    const nodes = this.nodes();
    const at = Math.max(
      0,
      nodes.findIndex((node) => node.id === this.current),
    );
    const node = nodes[at];
    if (!node) return;
    const id = Number(node.dataset.item ?? node.id.slice('frame'.length));
    const moves = /** @type {Record<string, number>} */ ({
      ArrowDown: at + 1,
      ArrowUp: at - 1,
      Home: 0,
      End: nodes.length - 1,
    });
    if (event.key in moves) {
      const to = nodes[Math.max(0, Math.min(moves[event.key], nodes.length - 1))];
      this.current = to.id;
      if (to.dataset.item && !event.ctrlKey) this.click(Number(to.dataset.item), event);
      this.showCurrent();
      to.scrollIntoView({ block: 'nearest' });
    } else if (event.key === 'ArrowRight' || event.key === 'ArrowLeft') {
      if (node.hasAttribute('aria-expanded')) this.toggle(id, event.key === 'ArrowRight');
    } else if (event.key === ' ') {
      const box = node.querySelector('input');
      if (box) box.click();
      else if (node.dataset.item) this.click(id, event);
    } else if (event.key === 'Enter') {
      if (node.dataset.item) this.click(id, event);
      else node.click();
    } else return;
    event.preventDefault();
  }

  /** @param {KeyboardEvent} event */
  tabKey(event) {
    const step = event.key === 'ArrowRight' ? 1 : event.key === 'ArrowLeft' ? -1 : 0;
    if (step === 0) return;
    const at = (tabs.indexOf(this.tab) + step + tabs.length) % tabs.length;
    this.program.do(0, 'tab', { name: tabs[at] });
    /** @type {HTMLElement} */ (this.tabBar.children[at]).focus();
  }
}
