// SPDX-License-Identifier: GPL-2.0-or-later
// Media and web addresses: in a player, or in a tab of their own that knows nothing of this page.
import { el } from './dom.js';
import { address } from './files.js';
import { save } from './store.js';
import { PageWindow } from './window.js';

const films = ['mp4', 'webm', 'ogv', 'mov', 'm4v'];
const sounds = ['mp3', 'ogg', 'oga', 'wav', 'm4a', 'flac'];

/** @param {string} path */
const extension = (path) => path.slice(path.lastIndexOf('.') + 1).toLowerCase();

/**
 * Opens http and https alone.
 * @param {string} target
 */
export function openAddress(target) {
  let parsed;
  try {
    parsed = new URL(target);
  } catch {
    return false;
  }
  if (parsed.protocol !== 'http:' && parsed.protocol !== 'https:') return false;
  window.open(parsed.href, '_blank', 'noopener,noreferrer');
  return true;
}

/**
 * @param {string} path
 * @param {'video'|'audio'} tag
 */
function play(path, tag) {
  const player = el(tag, { controls: true, autoplay: true, src: address(`module/${path}`) });
  const window = new PageWindow({
    title: path,
    className: 'player',
    name: 'Player',
    close: () => window.gone(),
  });
  window.body.append(player);
  window.centre();
  player.focus();
}

/** @param {string} path of published media, in the module */
export async function openMedia(path) {
  const kind = extension(path);
  if (films.includes(kind)) play(path, 'video');
  else if (sounds.includes(kind)) play(path, 'audio');
  else if (kind === 'url') await openLink(path);
  else window.open(address(`module/${path}`), '_blank', 'noopener,noreferrer');
}

/**
 * A shortcut file names an address on its line "URL=".
 * @param {string} path
 */
async function openLink(path) {
  if (location.protocol !== 'file:') {
    const answer = await fetch(address(`module/${path}`));
    const hit = /^URL=(.+)$/imu.exec(await answer.text());
    if (hit && openAddress(hit[1].trim())) return;
  }
  window.open(address(`module/${path}`), '_blank', 'noopener,noreferrer');
}

/**
 * A file of the page's own: text in a window, anything else for saving.
 * @param {string} path
 * @param {Uint8Array|null} bytes
 */
export function openFile(path, bytes) {
  if (!bytes) return;
  if (extension(path) !== 'txt') return save(path, bytes);
  const text = el('textarea', { readOnly: true, rows: 24, cols: 80, 'aria-label': path });
  text.value = new TextDecoder('windows-1252').decode(bytes);
  const window = new PageWindow({
    title: path.slice(path.lastIndexOf('/') + 1),
    className: 'text-file',
    name: 'TextFile',
    close: () => window.gone(),
  });
  window.body.append(text);
  window.centre();
  text.focus();
}
