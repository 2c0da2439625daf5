// SPDX-License-Identifier: GPL-2.0-or-later
// The tree, its nodes and their pictures.
import { el, setAttribute } from '../dom.js';
import { showPicture } from '../pictures.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */
/**
 * @typedef {{place: number, text: string, open: boolean, selected: boolean, image: number,
 *   nodes: Node[]}} Node
 */

/**
 * @param {State} _state
 * @param {Fire} fire
 * @returns {View}
 */
export function treeView(_state, fire) {
  const element = el('div', { className: 'tree', role: 'tree', tabIndex: 0 });
  /** @type {{node: Node, item: HTMLElement, parent: Node|null}[]} nodes in sight, in order */
  let seen = [];
  /** @type {{picture?: string}[]} */
  let images = [];
  let current = 0;

  /**
   * @param {Node} node
   * @param {number} level
   * @param {Node|null} parent
   */
  const itemOf = (node, level, parent) => {
    const opener = el('span', { className: 'tree-opener', 'aria-hidden': 'true' });
    opener.textContent = node.nodes.length === 0 ? '' : node.open ? '▾' : '▸';
    opener.onclick = (event) => {
      event.stopPropagation();
      fire('expand', { place: node.place, open: !node.open });
    };
    const image = el('img', { alt: '' });
    showPicture(image, images[node.image - 1]?.picture);
    const item = el(
      'div',
      {
        className: 'tree-item',
        role: 'treeitem',
        id: `${element.id}-${node.place}`,
        'aria-level': level,
        'aria-selected': node.selected,
        'data-place': node.place,
      },
      opener,
      image,
      el('span', {}, node.text),
    );
    item.style.paddingLeft = `${(level - 1) * 18}px`;
    if (node.nodes.length > 0) item.setAttribute('aria-expanded', String(node.open));
    item.onclick = () => {
      current = node.place;
      fire('node', { place: node.place });
    };
    seen.push({ node, item, parent });
    element.append(item);
    if (node.open) node.nodes.forEach((child) => itemOf(child, level + 1, node));
  };

  const showCurrent = () => {
    const at = seen.find((one) => one.node.place === current) ?? seen[0];
    setAttribute(element, 'aria-activedescendant', at ? at.item.id : null);
    seen.forEach((one) => one.item.classList.toggle('current', one === at));
    at?.item.scrollIntoView({ block: 'nearest' });
  };

  element.onkeydown = (event) => {
    const at = Math.max(
      0,
      seen.findIndex((one) => one.node.place === current),
    );
    const one = seen[at];
    if (!one) return;
    const { node } = one;
    const go = (/** @type {number} */ to) => {
      current = seen[Math.max(0, Math.min(to, seen.length - 1))].node.place;
      showCurrent();
    };
    if (event.key === 'ArrowDown') go(at + 1);
    else if (event.key === 'ArrowUp') go(at - 1);
    else if (event.key === 'Home') go(0);
    else if (event.key === 'End') go(seen.length - 1);
    else if (event.key === ' ') fire('node', { place: node.place });
    else if (event.key === 'ArrowRight' && node.nodes.length > 0 && !node.open) {
      fire('expand', { place: node.place, open: true });
    } else if (event.key === 'ArrowLeft' && node.open && node.nodes.length > 0) {
      fire('expand', { place: node.place, open: false });
    } else if (event.key === 'ArrowLeft' && one.parent) {
      current = one.parent.place;
      showCurrent();
    } else return;
    event.preventDefault();
  };

  return {
    element,
    update(now) {
      const top = element.scrollTop;
      element.id ||= `tree-${now.name}-${Math.floor(performance.now() * 1000)}`;
      images = now.images;
      seen = [];
      element.replaceChildren();
      now.nodes.forEach((/** @type {Node} */ node) => itemOf(node, 1, null));
      element.scrollTop = top;
      setAttribute(element, 'aria-label', now.label);
      showCurrent();
    },
  };
}
