// SPDX-License-Identifier: GPL-2.0-or-later
// Command buttons, option buttons and check boxes.
import { captionNodes, el } from '../dom.js';
import { showPicture } from '../pictures.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */

/**
 * @param {State} _state
 * @param {Fire} fire
 * @returns {View}
 */
export function buttonView(_state, fire) {
  const image = el('img', { alt: '' });
  const element = el('button', { type: 'button', onclick: () => fire('click') });
  return {
    element,
    update(now) {
      if (now.picture) {
        showPicture(image, now.picture);
        element.replaceChildren(image);
        element.setAttribute('aria-label', now.label);
      } else {
        element.replaceChildren(...captionNodes(now.caption));
        // A button that reads alike for eye and ear needs no other name.
        if (/\p{L}/u.test(now.caption)) element.removeAttribute('aria-label');
        else element.setAttribute('aria-label', now.tip || now.label);
      }
      element.disabled = !now.usable;
      element.classList.toggle('default', now.default);
    },
  };
}

/**
 * @param {'radio'|'checkbox'} type
 * @returns {(state: State, fire: Fire) => View}
 */
const choiceView = (type) => (_state, fire) => {
  const input = el('input', { type });
  const caption = el('span');
  const element = el('label', { className: 'choice' }, input, caption);
  // The tools decide on its state, so the browser's own change is taken back.
  input.onclick = (event) => {
    event.preventDefault();
    setTimeout(() => fire('click'));
  };
  return {
    element,
    focus: input,
    update(now) {
      caption.replaceChildren(...captionNodes(now.caption));
      input.checked = type === 'radio' ? now.on : now.value === 1;
      input.indeterminate = type === 'checkbox' && now.value === 2;
      input.disabled = !now.usable;
      if (!now.caption) input.setAttribute('aria-label', now.label);
    },
  };
};

export const optionView = choiceView('radio');
export const checkView = choiceView('checkbox');
