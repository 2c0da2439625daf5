// SPDX-License-Identifier: GPL-2.0-or-later
// Bitmaps of the tools, in which magenta stands for nothing.

/** @type {Map<string, Promise<string>>} */
const known = new Map();

/**
 * @param {string} address of a bitmap
 * @returns {Promise<string>} of the same picture with a see-through ground
 */
async function convert(address) {
  const picture = new Image();
  picture.src = address;
  await picture.decode();
  const canvas = document.createElement('canvas');
  canvas.width = picture.naturalWidth;
  canvas.height = picture.naturalHeight;
  const context = canvas.getContext('2d');
  if (!context) return address;
  context.drawImage(picture, 0, 0);
  const pixels = context.getImageData(0, 0, canvas.width, canvas.height);
  const bytes = pixels.data;
  for (let i = 0; i < bytes.length; i += 4) {
    if (bytes[i] === 255 && bytes[i + 1] === 0 && bytes[i + 2] === 255) bytes[i + 3] = 0;
  }
  context.putImageData(pixels, 0, 0);
  return canvas.toDataURL('image/png');
}

/**
 * Shows a picture of the tools in an image.
 * @param {HTMLImageElement} image
 * @param {string|undefined} address
 */
export function showPicture(image, address) {
  if (!address) {
    image.hidden = true;
    return;
  }
  image.hidden = false;
  if (image.dataset.picture === address) return;
  image.dataset.picture = address;
  let ready = known.get(address);
  if (!ready) {
    ready = convert(address).catch(() => address);
    known.set(address, ready);
  }
  void ready.then((shown) => {
    if (image.dataset.picture === address) image.src = shown;
  });
}
