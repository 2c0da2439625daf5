// SPDX-License-Identifier: GPL-2.0-or-later
// Symbols of points, lines and areas: small pictures of points, strokes and fills.

/**
 * @typedef {{shape?: string, size?: number, fill?: string, stroke?: string, width?: number,
 *   dash?: number[]}} Symbol
 * @typedef {{type?: string, opacity?: number, symbol?: Symbol,
 *   classes?: {symbol?: Symbol, label?: string, visible?: boolean}[]}} Symbols
 */

/** What a layer looks like of which nothing is told. */
export const plainSymbol = {
  shape: 'circle',
  size: 7,
  fill: '#7a8fa6ff',
  stroke: '#333333ff',
  width: 1,
};
export const selectedColour = '#ffff00';

/**
 * Of each class, in the order of the numbers that the program gives.
 * @param {Symbols|undefined} symbols
 * @returns {Symbol[]}
 */
export function symbolsOf(symbols) {
  if (!symbols) return [plainSymbol];
  if (symbols.type === 'simple' || !symbols.classes) return [symbols.symbol ?? plainSymbol];
  return symbols.classes.map((one) => one.symbol ?? plainSymbol);
}

/** Corners of shapes in a square from -1 to 1, y downwards. */
const corners = /** @type {Record<string, number[][]>} */ ({
  square: [
    [-1, -1],
    [1, -1],
    [1, 1],
    [-1, 1],
  ],
  diamond: [
    [0, -1],
    [1, 0],
    [0, 1],
    [-1, 0],
  ],
  triangle: [
    [0, -1],
    [1, 1],
    [-1, 1],
  ],
  star: Array.from({ length: 10 }, (_, i) => {
    const radius = i % 2 === 0 ? 1 : 0.4;
    const angle = (i * Math.PI) / 5;
    return [radius * Math.sin(angle), -radius * Math.cos(angle)];
  }),
});
const strokes = /** @type {Record<string, number[][][]>} */ ({
  cross: [
    [
      [-1, 0],
      [1, 0],
    ],
    [
      [0, -1],
      [0, 1],
    ],
  ],
  x: [
    [
      [-1, -1],
      [1, 1],
    ],
    [
      [-1, 1],
      [1, -1],
    ],
  ],
});

/**
 * @param {Path2D} path
 * @param {number[][]} points
 * @param {number} middle
 * @param {number} radius
 */
function addLine(path, points, middle, radius) {
  points.forEach(([x, y], i) => {
    path[i === 0 ? 'moveTo' : 'lineTo'](middle + x * radius, middle + y * radius);
  });
}

/**
 * @param {Symbol} symbol
 * @param {number} middle
 */
function pathOf(symbol, middle) {
  const path = new Path2D();
  const radius = (symbol.size ?? 7) / 2;
  const shape = symbol.shape ?? 'circle';
  if (corners[shape]) {
    addLine(path, corners[shape], middle, radius);
    path.closePath();
  } else if (strokes[shape]) {
    strokes[shape].forEach((line) => addLine(path, line, middle, radius));
  } else {
    path.arc(middle, middle, radius, 0, 2 * Math.PI);
  }
  return path;
}

/**
 * The picture of a point.
 * @param {Symbol} symbol
 * @param {number} ratio of pixels
 * @param {boolean} selected
 * @returns {HTMLCanvasElement} its middle is the point
 */
export function pointPicture(symbol, ratio, selected) {
  const width = symbol.width ?? 1;
  const size = Math.ceil((symbol.size ?? 7) + width * 2 + 2);
  const canvas = document.createElement('canvas');
  canvas.width = canvas.height = Math.ceil(size * ratio);
  const context = canvas.getContext('2d');
  if (!context) return canvas;
  context.scale(ratio, ratio);
  const path = pathOf(symbol, canvas.width / ratio / 2);
  const fill = selected ? selectedColour : symbol.fill;
  if (fill && !strokes[symbol.shape ?? '']) {
    context.fillStyle = fill;
    context.fill(path);
  }
  const stroke = strokes[symbol.shape ?? ''] && selected ? selectedColour : symbol.stroke;
  if (stroke) {
    context.strokeStyle = stroke;
    context.lineWidth = width;
    context.stroke(path);
  }
  return canvas;
}
