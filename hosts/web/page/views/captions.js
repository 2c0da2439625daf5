// SPDX-License-Identifier: GPL-2.0-or-later
// Labels, frames and pictures.
import { captionNodes, el, setAttribute } from '../dom.js';
import { showPicture } from '../pictures.js';

/** @typedef {import('./view.js').State} State */
/** @typedef {import('./view.js').Fire} Fire */
/** @typedef {import('./view.js').View} View */

/**
 * @param {State} state
 * @param {Fire} fire
 * @returns {View}
 */
export function labelView(state, fire) {
  const element = el('span', { className: 'label' });
  if (state.clickable) {
    element.classList.add('clickable');
    element.onclick = () => fire('click');
  }
  if (state.hears) element.onpointermove = () => fire('move');
  return {
    element,
    update: (now) => element.replaceChildren(...captionNodes(now.caption)),
  };
}

/** @returns {View} */
export function frameView() {
  const title = el('span', { className: 'frame-title' });
  const element = el('div', { className: 'frame', role: 'group' }, title);
  return {
    element,
    update(now) {
      title.replaceChildren(...captionNodes(now.caption));
      title.hidden = now.caption === '';
    },
  };
}

/**
 * @param {State} state
 * @param {Fire} fire
 * @returns {View}
 */
export function pictureView(state, fire) {
  const image = el('img', { className: 'picture' });
  image.draggable = false;
  if (state.clickable) {
    const element = el('button', { type: 'button', className: 'picture-button' }, image);
    element.onclick = () => fire('click');
    return {
      element,
      update(now) {
        image.alt = '';
        element.setAttribute('aria-label', now.label || now.description || now.name);
        showPicture(image, now.picture);
      },
    };
  }
  return {
    element: image,
    update(now) {
      image.alt = now.description ?? '';
      setAttribute(image, 'role', image.alt ? null : 'presentation');
      showPicture(image, now.picture);
    },
  };
}
