// SPDX-License-Identifier: GPL-2.0-or-later
// Making elements. Texts become text, never markup.

/**
 * @template {keyof HTMLElementTagNameMap} T
 * @param {T} tag
 * @param {Record<string, any>} [properties] properties of the element; `role`, `aria-...` and
 *   `data-...` become attributes
 * @param {...(Node|string)} children
 * @returns {HTMLElementTagNameMap[T]}
 */
export function el(tag, properties = {}, ...children) {
  const made = document.createElement(tag);
  for (const [key, value] of Object.entries(properties)) {
    if (key === 'role' || key.startsWith('aria-') || key.startsWith('data-')) {
      made.setAttribute(key, String(value));
    } else {
      Reflect.set(made, key, value);
    }
  }
  made.append(...children);
  return made;
}

/**
 * Sets an attribute, or takes it away for null and false.
 * @param {Element} element
 * @param {string} name
 * @param {string|number|boolean|null} value
 */
export function setAttribute(element, name, value) {
  if (value === null || value === false) element.removeAttribute(name);
  else element.setAttribute(name, value === true ? '' : String(value));
}

/**
 * A caption without '&' before its accelerator; '&&' is an '&'.
 * @param {string} caption
 */
export const plainCaption = (caption) => caption.replace(/&(.)/gu, '$1');

/**
 * The letter that leads to a control, in lower case; '' for none.
 * @param {string} caption
 */
export function accelerator(caption) {
  const hit = /&([^&\s])/u.exec(caption.replace(/&&/gu, ''));
  return hit ? hit[1].toLowerCase() : '';
}

/**
 * The caption as nodes, its accelerator underlined.
 * @param {string} caption
 * @returns {(Node|string)[]}
 */
export function captionNodes(caption) {
  const hit = /&([^&\s])/u.exec(caption);
  if (!hit) return [plainCaption(caption)];
  return [
    plainCaption(caption.slice(0, hit.index)),
    el('u', {}, hit[1]),
    plainCaption(caption.slice(hit.index + 2)),
  ];
}

/**
 * A colour of the tools (0xBBGGRR, -1 for the page's own) for a style.
 * @param {number} colour
 */
export const cssColour = (colour) =>
  colour < 0 ? '' : `rgb(${colour & 255} ${(colour >> 8) & 255} ${(colour >> 16) & 255})`;
