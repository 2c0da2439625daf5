// SPDX-License-Identifier: GPL-2.0-or-later
// A form: its window, its controls' views, the focus. No form is known here.
import { accelerator, cssColour } from './dom.js';
import { viewOfKind } from './views/views.js';
import { PageWindow } from './window.js';

/** @typedef {import('./program.js').Program} Program */
/** @typedef {import('./views/view.js').State} State */
/** @typedef {import('./views/view.js').View} View */

// The tools measure in pixels of letters of 8 points; letters here are larger.
const scale = 1.2;
const frameKind = 7;
const buttonKind = 4;

export class FormWindow {
  /**
   * @param {Program} program
   * @param {number} name
   * @param {boolean} modal
   */
  constructor(program, name, modal) {
    this.program = program;
    this.name = name;
    this.modal = modal;
    /** @type {View[]} */
    this.views = [];
    /** @type {State[]} */
    this.states = [];
    /** @type {{focus: number, tabs: number[], [key: string]: any}} */
    this.form = { focus: -1, tabs: [] };
    this.window = new PageWindow({
      title: '',
      modal,
      className: 'form',
      close: () => this.fire(-1, 'close'),
    });
    const { element, body } = this.window;
    this.window.stops = () => this.stops();
    element.addEventListener('keydown', (event) => this.key(event));
    body.addEventListener('focusin', (event) => this.focused(event));
    body.addEventListener('click', (event) => {
      if (event.target === body) this.fire(-1, 'click');
    });
    body.addEventListener('pointermove', (event) => {
      if (event.target === body) this.fire(-1, 'move');
    });
    element.addEventListener('focusin', () => this.activate());
    this.active = true;
    this.update();
    this.window.centre();
    this.showFocus();
  }

  /** Who may speak: a modeless form while nothing is above it. */
  who() {
    return this.modal ? this.name : 0;
  }

  /**
   * @param {number} control
   * @param {string} verb
   * @param {object} [more]
   */
  fire(control, verb, more = {}) {
    return this.program.do(this.who(), 'form', { form: this.name, control, verb, ...more });
  }

  update() {
    const changes = this.program.ask('form', { name: this.name });
    if (!changes) return;
    this.form = changes.form;
    this.showForm();
    const changed = Object.keys(changes.controls).map(Number);
    for (const i of changed) this.states[i] = changes.controls[i];
    for (const i of changed) this.showControl(i);
    if (changes.form.focus >= 0) this.showFocus();
  }

  showForm() {
    const { element, body, title } = this.window;
    const { caption, width, height, back } = this.form;
    element.dataset.name = this.form.class;
    title.textContent = caption || this.form.class;
    body.style.width = `${width * scale}px`;
    body.style.height = `${height * scale}px`;
    body.style.background = cssColour(back);
    element.classList.toggle('sizable', Boolean(this.form.sizable));
    if (this.form.sizable && !this.watch) this.watchSize();
  }

  /** A user drags the lower right corner of a sizable form. */
  watchSize() {
    const { body } = this.window;
    this.watch = new ResizeObserver(() => {
      // As dragged; where the screen is smaller, the form scrolls and keeps its size.
      const width = Math.round(parseFloat(body.style.width) / scale);
      const height = Math.round(parseFloat(body.style.height) / scale);
      if (width === Math.round(this.form.width) && height === Math.round(this.form.height)) return;
      this.fire(-1, 'resize', { width, height });
    });
    this.watch.observe(body);
  }

  /** @param {number} i */
  showControl(i) {
    const state = this.states[i];
    let view = this.views[i];
    if (!view) {
      const make = viewOfKind[state.kind];
      view = make(state, (verb, more) => this.fire(i, verb, more));
      this.views[i] = view;
      view.element.dataset.control = state.name;
      view.element.classList.add('control');
      if (state.frame >= 0 && !this.views[state.frame]) this.showControl(state.frame);
      const parent = state.frame >= 0 ? this.views[state.frame].element : this.window.body;
      parent.append(view.element);
    }
    this.place(view.element, state);
    view.update(state);
  }

  /**
   * @param {HTMLElement} element
   * @param {State} state
   */
  place(element, state) {
    const { style } = element;
    style.left = `${state.left * scale}px`;
    style.top = `${state.top * scale}px`;
    style.width = `${state.width * scale}px`;
    style.height = `${state.height * scale}px`;
    // What is small lies above what is large: a box behind a box is a frame around it.
    style.zIndex = String(Math.max(1, 2000 - Math.round(Math.sqrt(state.width * state.height))));
    style.setProperty('--own-ink', cssColour(state.fore));
    style.setProperty('--own-ground', cssColour(state.back));
    element.classList.toggle('own-ink', state.fore >= 0);
    element.classList.toggle('own-ground', state.back >= 0);
    style.fontSize = state.points ? `${state.points * scale}pt` : '';
    element.classList.toggle('bold', Boolean(state.bold));
    element.classList.toggle('underline', Boolean(state.underline));
    element.classList.toggle('hand', Boolean(state.hand));
    element.classList.toggle('off', !state.usable);
    element.hidden = !state.visible;
    if (state.tip) element.title = state.tip;
    else element.removeAttribute('title');
    if (state.kind === frameKind) element.setAttribute('aria-label', state.label || state.name);
  }

  /** @param {number} i */
  focusOf(i) {
    const view = this.views[i];
    return view ? (view.focus ?? view.element) : null;
  }

  stops() {
    const stops = this.form.tabs.map((i) => this.focusOf(i)).filter((stop) => stop !== null);
    // An option that is not the group's place in the order stands for it.
    const now = /** @type {HTMLElement} */ (document.activeElement);
    if (this.window.body.contains(now) && !stops.includes(now)) stops.unshift(now);
    return [.../** @type {HTMLElement[]} */ (stops), this.window.closeButton];
  }

  showFocus() {
    if (this.window.element.inert) return;
    const element = this.focusOf(this.form.focus) ?? this.stops()[0];
    if (element !== document.activeElement) element?.focus({ preventScroll: true });
  }

  /** @param {FocusEvent} event */
  focused(event) {
    const i = this.views.findIndex((view, at) => view && this.focusOf(at) === event.target);
    if (i < 0 || i === this.form.focus) return;
    this.form.focus = i;
    this.fire(i, 'focus');
  }

  activate() {
    if (this.modal || this.active) return;
    this.active = true;
    this.window.element.addEventListener('focusout', () => (this.active = false), { once: true });
    this.fire(-1, 'activate');
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    const target = event.target;
    if (event.key === 'Escape') {
      event.preventDefault();
      this.fire(-1, 'escape');
    } else if (event.key === 'Enter' && !event.defaultPrevented) {
      if (target instanceof HTMLButtonElement) return;
      if (target instanceof HTMLTextAreaElement && !target.readOnly) return;
      event.preventDefault();
      this.fire(-1, 'enter');
    } else if (event.altKey && event.key.length === 1) {
      this.accelerate(event);
    }
  }

  /** @param {KeyboardEvent} event */
  accelerate(event) {
    const letter = event.key.toLowerCase();
    const i = this.states.findIndex(
      (state) => state?.visible && accelerator(state.caption) === letter,
    );
    if (i < 0) return;
    event.preventDefault();
    if (this.states[i].kind >= buttonKind && this.states[i].kind < frameKind) {
      this.focusOf(i)?.click();
      return;
    }
    // A label's letter leads to what follows it in the tab order.
    const next = this.form.tabs.find((stop) => this.states[stop].tab > this.states[i].tab);
    if (next !== undefined) this.focusOf(next)?.focus();
  }

  gone() {
    this.watch?.disconnect();
    this.window.gone();
  }
}
