// SPDX-License-Identifier: GPL-2.0-or-later
// The status bar: messages, progress, the place under the pointer.
import { el } from './dom.js';

export class StatusBar {
  constructor() {
    this.message = el('span', { className: 'status-message', role: 'status' });
    this.place = el('span', { className: 'status-place' });
    this.bar = el('progress', {
      className: 'status-progress',
      hidden: true,
      'aria-label': 'Progress',
    });
    this.element = el('footer', { className: 'status' }, this.message, this.bar, this.place);
  }

  /** @param {string} text */
  say(text) {
    this.message.classList.remove('fault');
    this.message.textContent = text;
  }

  /** @param {string} text of a failure */
  complain(text) {
    this.message.textContent = text;
    this.message.classList.add('fault');
  }

  /**
   * @param {{message: string, minimum: number, maximum: number, position: number,
   *   visible: boolean}} progress
   */
  progress({ message, minimum, maximum, position, visible }) {
    this.bar.hidden = !visible;
    this.bar.max = Math.max(1, maximum - minimum);
    this.bar.value = position - minimum;
    this.say(visible ? message : '');
  }
}
