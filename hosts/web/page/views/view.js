// SPDX-License-Identifier: GPL-2.0-or-later
// What every view of a control is.

/**
 * A control as the tools describe it; what only some kinds have is told by their views.
 * @typedef {Record<string, any> & {
 *   kind: number, name: string, frame: number, left: number, top: number, width: number,
 *   height: number, caption: string, usable: boolean, visible: boolean, tip: string,
 *   label: string, fore: number, back: number, hand: boolean, tab: number
 * }} State
 *
 * Tells the tools what a user has done.
 * @typedef {(verb: string, more?: object) => void} Fire
 *
 * @typedef {object} View
 * @property {HTMLElement} element placed by its window
 * @property {HTMLElement} [focus] what takes the focus, if not the element
 * @property {(state: State) => void} update
 */
export {};
