// SPDX-License-Identifier: GPL-2.0-or-later
// The bar with the tools' buttons, and the menu of all commands.
import { el } from './dom.js';
import { showPicture } from './pictures.js';

/** @typedef {import('./program.js').Program} Program */
/**
 * @typedef {{class: string, caption: string, tip: string, message: string, category: string,
 *   picture: string}} Command
 */

export class Toolbar {
  /**
   * @param {Program} program
   * @param {(message: string) => void} say shows what a command is for
   */
  constructor(program, say) {
    this.program = program;
    this.say = say;
    /** @type {Map<string, HTMLButtonElement[]>} */
    this.buttons = new Map();
    this.element = el('div', {
      className: 'toolbar',
      role: 'toolbar',
      'aria-label': 'Brelmon Tools',
    });
    this.menu = el('div', { className: 'menu', role: 'menu', hidden: true, id: 'menu' });
    this.opener = el(
      'button',
      {
        type: 'button',
        className: 'menu-opener',
        'aria-haspopup': 'menu',
        'aria-expanded': 'false',
        onclick: () => this.toggleMenu(),
      },
      'Tools ▾',
    );
    this.fill();
    this.element.addEventListener('keydown', (event) => this.key(event, this.barButtons()));
    this.menu.addEventListener('keydown', (event) => this.key(event, this.menuButtons()));
    document.addEventListener('pointerdown', (event) => {
      const inside = event.target instanceof Node && this.menu.contains(event.target);
      if (!inside && event.target !== this.opener) this.closeMenu();
    });
  }

  fill() {
    const { commands, bar } = this.program.ask('toolbar');
    const known = new Map(commands.map((/** @type {Command} */ one) => [one.class, one]));
    this.element.append(this.opener);
    for (const item of bar) {
      if (item.group)
        this.element.append(el('span', { className: 'separator', role: 'separator' }));
      this.element.append(this.buttonFor(known.get(item.class), false));
    }
    let category = '';
    for (const command of /** @type {Command[]} */ (commands)) {
      if (command.category !== category) {
        ({ category } = command);
        this.menu.append(el('div', { className: 'menu-title', role: 'presentation' }, category));
      }
      this.menu.append(this.buttonFor(command, true));
    }
  }

  /**
   * @param {Command} command
   * @param {boolean} inMenu
   */
  buttonFor(command, inMenu) {
    const image = el('img', { alt: '' });
    showPicture(image, command.picture);
    const button = el(
      'button',
      { type: 'button', title: command.tip, 'data-class': command.class, disabled: true },
      image,
    );
    if (inMenu) {
      button.append(command.caption);
      button.setAttribute('role', 'menuitem');
      button.tabIndex = -1;
    } else {
      button.setAttribute('aria-label', command.caption);
    }
    button.onclick = () => {
      this.closeMenu();
      this.program.do(0, 'click', { class: command.class });
    };
    button.onpointerenter = () => this.say(command.message);
    button.onpointerleave = () => this.say('');
    const all = this.buttons.get(command.class) ?? [];
    this.buttons.set(command.class, [...all, button]);
    return button;
  }

  /** @param {string[]} classes of the commands that are enabled */
  enable(classes) {
    const on = new Set(classes);
    for (const [name, buttons] of this.buttons) {
      for (const button of buttons) button.disabled = !on.has(name);
    }
  }

  barButtons() {
    return [...this.element.querySelectorAll('button')].filter((button) => !button.disabled);
  }
  menuButtons() {
    return [...this.menu.querySelectorAll('button')].filter((button) => !button.disabled);
  }

  toggleMenu() {
    if (!this.menu.hidden) return this.closeMenu();
    this.menu.hidden = false;
    this.opener.setAttribute('aria-expanded', 'true');
    this.menuButtons()[0]?.focus();
  }

  closeMenu() {
    if (this.menu.hidden) return;
    const inside = this.menu.contains(document.activeElement);
    this.menu.hidden = true;
    this.opener.setAttribute('aria-expanded', 'false');
    if (inside) this.opener.focus();
  }

  /**
   * @param {KeyboardEvent} event
   * @param {HTMLButtonElement[]} buttons
   */
  key(event, buttons) {
    const at = buttons.indexOf(/** @type {HTMLButtonElement} */ (document.activeElement));
    const steps = /** @type {Record<string, number>} */ ({
      ArrowRight: 1,
      ArrowDown: 1,
      ArrowLeft: -1,
      ArrowUp: -1,
    });
    if (event.key === 'Escape') this.closeMenu();
    else if (event.key in steps && at >= 0) {
      event.preventDefault();
      buttons[(at + steps[event.key] + buttons.length) % buttons.length].focus();
    }
  }
}
