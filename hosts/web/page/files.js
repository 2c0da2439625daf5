// SPDX-License-Identifier: GPL-2.0-or-later
// Files of the published folder: fetched, or out of scripts where a page may fetch nothing.

const single = document.documentElement.hasAttribute('data-single');

/** @type {Map<string, string>} */
const texts = new Map();
/** @type {Record<string, any>} */ (globalThis).brelmonFile = (
  /** @type {string} */ name,
  /** @type {string} */ base64,
) => texts.set(name, base64);

/** @param {string} base64 */
function bytesOf(base64) {
  const letters = atob(base64);
  const bytes = new Uint8Array(letters.length);
  for (let i = 0; i < letters.length; i++) bytes[i] = letters.charCodeAt(i);
  return bytes;
}

/**
 * @param {string} name
 * @returns {Promise<Uint8Array>}
 */
function fromScript(name) {
  return new Promise((resolve, reject) => {
    const script = document.createElement('script');
    script.src = address(`${name}.js`);
    script.onload = () => {
      const base64 = texts.get(name);
      texts.delete(name);
      script.remove();
      if (base64 === undefined) reject(new Error(`${name}: the script brought nothing`));
      else resolve(bytesOf(base64));
    };
    script.onerror = () => reject(new Error(`${name} can't be read`));
    document.head.append(script);
  });
}

/**
 * The address of a file of the folder.
 * @param {string} name with forward slashes
 */
export const address = (name) => name.split('/').map(encodeURIComponent).join('/');

/**
 * @param {string} name
 * @returns {Promise<Uint8Array>}
 */
export async function readFile(name) {
  if (single) return fromScript(name);
  const answer = await fetch(address(name));
  if (!answer.ok) throw new Error(`${name} can't be read (${answer.status})`);
  return new Uint8Array(await answer.arrayBuffer());
}
