// SPDX-License-Identifier: GPL-2.0-or-later
// Windows in the page: a title bar to move them by, an order, a focus that stays inside.
import { el } from './dom.js';

/** @type {PageWindow[]} the frontmost last */
const open = [];

const focusable =
  'button:not([disabled]),input:not([disabled]),select:not([disabled]),textarea:not([disabled]),' +
  '[tabindex="0"],a[href]';

/** Nothing behind a modal window can be reached. */
function mark() {
  const front = open.findLastIndex((window) => window.modal);
  open.forEach((window, i) => {
    window.element.style.zIndex = String((window.always ? 1000 : 100) + i);
    window.element.inert = i < front && !window.always;
  });
  const desk = document.getElementById('desk');
  if (desk) desk.inert = front >= 0;
}

export class PageWindow {
  /**
   * @param {{title: string, modal?: boolean, role?: string, className?: string,
   *   close?: () => void, name?: string, always?: boolean}} options `close` runs when its button is
   *   pressed; `always` keeps it above modal windows and within reach
   */
  constructor({
    title,
    modal = false,
    role = 'dialog',
    className = '',
    close,
    name = '',
    always = false,
  }) {
    this.modal = modal;
    this.always = always;
    this.before = document.activeElement;
    this.title = el('h2', { className: 'window-title', id: `title-${PageWindow.#made++}` }, title);
    this.closeButton = el(
      'button',
      {
        type: 'button',
        className: 'window-close',
        'aria-label': 'Close',
        onclick: close,
      },
      '×',
    );
    this.bar = el('header', { className: 'window-bar' }, this.title, this.closeButton);
    this.body = el('div', { className: 'window-body' });
    this.element = el(
      'section',
      {
        className: `window ${className}`,
        role,
        'aria-labelledby': this.title.id,
        'data-name': name,
      },
      this.bar,
      this.body,
    );
    if (modal) this.element.setAttribute('aria-modal', 'true');
    this.bar.addEventListener('pointerdown', (event) => this.#drag(event));
    this.element.addEventListener('pointerdown', () => this.raise());
    this.element.addEventListener('keydown', (event) => this.#keepFocus(event));
    document.getElementById('windows')?.append(this.element);
    open.push(this);
    mark();
  }
  static #made = 0;

  /** What Tab goes through, in order. */
  stops() {
    return [...this.element.querySelectorAll(focusable)].filter(
      (stop) => stop instanceof HTMLElement && stop.offsetParent !== null,
    );
  }

  centre() {
    const { offsetWidth, offsetHeight } = this.element;
    this.moveTo((innerWidth - offsetWidth) / 2, (innerHeight - offsetHeight) / 3);
  }

  /**
   * @param {number} left
   * @param {number} top
   */
  moveTo(left, top) {
    const shift = 16 * open.indexOf(this);
    const most = { left: innerWidth - 60, top: innerHeight - 40 };
    this.element.style.left = `${Math.max(0, Math.min(left + shift, most.left))}px`;
    this.element.style.top = `${Math.max(0, Math.min(top + shift, most.top))}px`;
  }

  raise() {
    if (open.at(-1) === this || this.element.inert) return;
    open.splice(open.indexOf(this), 1);
    open.push(this);
    mark();
  }

  /** Gives the focus back to where it was. */
  gone() {
    const at = open.indexOf(this);
    if (at < 0) return;
    open.splice(at, 1);
    const had = this.element.contains(document.activeElement) || this.modal;
    this.element.remove();
    mark();
    if (had && this.before instanceof HTMLElement && this.before.isConnected) {
      this.before.focus({ preventScroll: true });
    }
  }

  /** @param {PointerEvent} start */
  #drag(start) {
    if (start.target instanceof HTMLButtonElement) return;
    const { offsetLeft, offsetTop } = this.element;
    const move = (/** @type {PointerEvent} */ event) => {
      const left = offsetLeft + event.clientX - start.clientX;
      const top = offsetTop + event.clientY - start.clientY;
      this.element.style.left = `${Math.max(-200, Math.min(left, innerWidth - 60))}px`;
      this.element.style.top = `${Math.max(0, Math.min(top, innerHeight - 30))}px`;
    };
    this.bar.setPointerCapture(start.pointerId);
    this.bar.addEventListener('pointermove', move);
    this.bar.addEventListener(
      'lostpointercapture',
      () => this.bar.removeEventListener('pointermove', move),
      { once: true },
    );
  }

  /** @param {KeyboardEvent} event */
  #keepFocus(event) {
    if (event.key !== 'Tab' || event.defaultPrevented) return;
    const stops = this.stops();
    if (stops.length === 0) return;
    const at = stops.indexOf(/** @type {Element} */ (document.activeElement));
    const next = (at + (event.shiftKey ? stops.length - 1 : 1)) % stops.length;
    event.preventDefault();
    /** @type {HTMLElement} */ (stops[at < 0 ? 0 : next]).focus();
  }
}
