// SPDX-License-Identifier: GPL-2.0-or-later
// The tools: questions and deeds go in, messages come out, waits are kept in order.

/**
 * @typedef {Record<string, any> & {what: string}} Told
 * @typedef {{name: number, ready: boolean, answer: number, resume: (answer: number) => void}} Wait
 */

export class Program extends EventTarget {
  /** @type {any} the compiled program */
  #module = null;
  /** @type {Wait[]} the innermost last */
  #waits = [];
  /** @type {Told[]} */
  #told = [];
  #inside = 0;
  #running = 0;
  /** @type {Map<string, (told: any) => void>} */
  #listeners = new Map();

  /**
   * @param {(options: object) => Promise<any>} make
   * @param {object} options
   */
  async load(make, options) {
    const page = {
      tell: (/** @type {Told} */ told) => this.#told.push(told),
      beginWait: (/** @type {number} */ name) => this.#beginWait(name),
    };
    this.#module = await make({ ...options, page });
  }

  /**
   * Hears of one kind of message. Listeners may ask at once, and do from the next turn on.
   * @param {string} what
   * @param {(told: any) => void} listener
   */
  on(what, listener) {
    this.#listeners.set(what, listener);
  }

  /** Whether a tool runs, also one that waits for its user. */
  get busy() {
    return this.#running > 0;
  }
  /** The form, box or pause that all input goes to; 0 for the page itself. */
  get top() {
    return this.#waits.at(-1)?.name ?? 0;
  }

  /**
   * @param {string} what
   * @param {object} [message]
   * @returns {any}
   */
  ask(what, message = {}) {
    return JSON.parse(
      this.#within(() => this.#call('_brelmon_ask', what, JSON.stringify(message))),
    );
  }

  /**
   * Does something for whoever is in front: 0 for the page, else the name of a form. Dropped while
   * something lies above it.
   * @param {number} who
   * @param {string} what
   * @param {object} [message]
   * @returns {boolean} whether it was done
   */
  do(who, what, message = {}) {
    if (this.#inside > 0 || who !== this.top || (who === 0 && this.busy)) return false;
    this.#running++;
    this.#within(() => this.#call('_brelmon_do', what, JSON.stringify(message)));
    return true;
  }

  /**
   * @param {number} name
   * @param {number} answer
   */
  endWait(name, answer) {
    const wait = this.#waits.find((one) => one.name === name);
    if (!wait) return;
    wait.ready = true;
    wait.answer = answer;
    setTimeout(() => this.#pump());
  }

  /**
   * @param {string} moduleJson
   * @returns {string} why it can't be opened, else ''
   */
  begin(moduleJson) {
    return this.#within(() => this.#call('_brelmon_begin', moduleJson));
  }
  /** @param {object} settings */
  open(settings) {
    return this.#within(() => this.#call('_brelmon_open', JSON.stringify(settings)));
  }
  /**
   * @param {'table'|'file'} kind
   * @param {string} name
   * @param {Uint8Array} bytes
   */
  put(kind, name, bytes) {
    const module = this.#module;
    const at = module._brelmon_room(bytes.length);
    module.HEAPU8.set(bytes, at);
    this.#within(() => this.#call(`_brelmon_put_${kind}`, name));
  }
  /**
   * The bytes of a file that the tools have written.
   * @param {string} path
   * @returns {Uint8Array|null}
   */
  fileBytes(path) {
    // Taken before anybody hears of anything: a listener may ask for another file, which takes the
    // place of this one.
    return this.#within(() => {
      const place = JSON.parse(this.#call('_brelmon_ask', 'file', JSON.stringify({ path })));
      return place && this.#module.HEAPU8.slice(place.at, place.at + place.size);
    });
  }
  /** The program's memory, to be looked at until it is next called. */
  get memory() {
    return /** @type {ArrayBuffer} */ (this.#module.HEAPU8.buffer);
  }

  /**
   * A text with its closing NUL in the program's memory, to be freed.
   * @param {string} text
   */
  #text(text) {
    const bytes = new TextEncoder().encode(`${text}\0`);
    const at = this.#module._malloc(bytes.length);
    this.#module.HEAPU8.set(bytes, at);
    return at;
  }

  /** @param {number} name */
  #beginWait(name) {
    /** @type {Wait} */
    const wait = { name, ready: false, answer: 0, resume: () => {} };
    this.#waits.push(wait);
    return wait;
  }

  /** The innermost wait alone may end. */
  #pump() {
    const top = this.#waits.at(-1);
    if (!top?.ready || this.#inside > 0) return;
    this.#waits.pop();
    this.#within(() => top.resume(top.answer));
    setTimeout(() => this.#pump());
  }

  /**
   * @param {string} name
   * @param {...string} texts
   */
  #call(name, ...texts) {
    const module = this.#module;
    const places = texts.map((text) => this.#text(text));
    const answer = module[name](...places);
    places.forEach((place) => module._free(place));
    return answer ? module.UTF8ToString(answer) : '';
  }

  /**
   * @template T
   * @param {() => T} deed
   * @returns {T}
   */
  #within(deed) {
    this.#inside++;
    try {
      return deed();
    } finally {
      this.#inside--;
      this.#deliver();
    }
  }

  #deliver() {
    if (this.#inside > 0) return;
    for (let told = this.#told.shift(); told; told = this.#told.shift()) {
      if (told.what === 'done') this.#running--;
      else if (told.what === 'end-wait') this.endWait(told.name, told.answer);
      else this.#listeners.get(told.what)?.(told);
    }
    this.dispatchEvent(new Event('settled'));
  }
}
