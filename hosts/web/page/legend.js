// SPDX-License-Identifier: GPL-2.0-or-later
// The legend of a layer below its name.
import { el } from './dom.js';
import { plainSymbol, pointPicture } from './symbols.js';

/** @typedef {import('./symbols.js').Symbol} Symbol */

/** @param {Symbol} symbol */
function swatch(symbol) {
  if (symbol.shape) return pointPicture(symbol, devicePixelRatio, false);
  const canvas = document.createElement('canvas');
  canvas.width = 18 * devicePixelRatio;
  canvas.height = 12 * devicePixelRatio;
  const context = canvas.getContext('2d');
  if (!context) return canvas;
  context.scale(devicePixelRatio, devicePixelRatio);
  context.strokeStyle = symbol.stroke ?? 'transparent';
  context.lineWidth = symbol.width ?? 1;
  if (symbol.fill) {
    context.fillStyle = symbol.fill;
    context.fillRect(1.5, 1.5, 15, 9);
    context.strokeRect(1.5, 1.5, 15, 9);
  } else {
    context.setLineDash(symbol.dash ?? []);
    context.beginPath();
    context.moveTo(0, 6);
    context.lineTo(18, 6);
    context.stroke();
  }
  return canvas;
}

/**
 * @param {import('./symbols.js').Symbols} symbols
 * @param {number} level
 */
export function legendOf(symbols, level) {
  const rows = el('div', { className: 'legend', role: 'presentation' });
  rows.style.paddingLeft = `${level * 14}px`;
  const classes =
    symbols.type === 'simple' || !symbols.classes
      ? [{ symbol: symbols.symbol, label: '', visible: true }]
      : symbols.classes;
  for (const one of classes) {
    const picture = swatch(one.symbol ?? plainSymbol);
    picture.style.width = `${picture.width / devicePixelRatio}px`;
    picture.className = 'swatch';
    rows.append(el('div', { className: 'legend-row' }, picture, one.label ?? ''));
  }
  return rows;
}
