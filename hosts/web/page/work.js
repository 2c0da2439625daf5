// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of files that the tools write: kept in the browser, said so, offered for saving.
import { el } from './dom.js';
import { save } from './store.js';

/** @typedef {import('./program.js').Program} Program */
/** @typedef {import('./store.js').Store} Store */

export class Work {
  /**
   * @param {Program} program
   * @param {Store} store
   */
  constructor(program, store) {
    this.program = program;
    this.store = store;
    this.again = el(
      'button',
      { type: 'button', hidden: true, onclick: () => this.resume() },
      'Go on with the stored work',
    );
    this.forget = el(
      'button',
      { type: 'button', hidden: true, onclick: () => void this.clear() },
      'Forget it',
    );
    this.said = el('span', { className: 'work-said', role: 'status' });
    this.saveButton = el('button', { type: 'button', hidden: true }, 'Save a copy');
    this.element = el(
      'div',
      { className: 'work' },
      this.said,
      this.saveButton,
      this.again,
      this.forget,
    );
  }

  /** Offers what was stored on an earlier day. */
  async offer() {
    try {
      const kept = await this.store.all();
      this.again.hidden = this.forget.hidden = kept.length === 0;
    } catch {
      this.say('This browser keeps no files: save a copy of what you make.');
    }
  }

  /** @param {string} text */
  say(text) {
    this.said.textContent = text;
  }

  /** @param {string} path of a file that was written */
  written(path) {
    const bytes = this.program.fileBytes(path);
    if (!bytes) return;
    // What tells a table's encoding is kept with it, without a word.
    if (path.endsWith('.cpg')) {
      void this.store.keep(path, bytes).catch(() => {});
      return;
    }
    const name = path.slice(path.lastIndexOf('/') + 1);
    this.saveButton.hidden = false;
    this.saveButton.onclick = () => {
      const now = this.program.fileBytes(path);
      if (now) save(path, now);
    };
    this.store.keep(path, bytes).then(
      () => this.say(`${name} is kept in this browser.`),
      () => this.say(`${name} can't be kept in this browser: save a copy.`),
    );
  }

  /** Puts the stored files back and adds the stored tables to the map. */
  async resume() {
    if (this.program.busy) return;
    const kept = await this.store.all();
    for (const { path, bytes } of kept) this.program.put('file', path, bytes);
    for (const { path } of kept) {
      if (path.toLowerCase().endsWith('.dbf')) this.program.do(0, 'add-table', { path });
    }
    this.again.hidden = true;
    this.say('You go on with the stored work.');
  }

  async clear() {
    await this.store.clear();
    this.again.hidden = this.forget.hidden = true;
    this.say('The stored work is forgotten.');
  }
}
