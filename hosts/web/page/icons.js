// SPDX-License-Identifier: GPL-2.0-or-later
// Pictures of the page's own buttons, as lines of 16 by 16.

const paths = {
  pan: 'M8 1v14M1 8h14M8 1 6 3M8 1l2 2M8 15l-2-2M8 15l2-2M1 8l2-2M1 8l2 2M15 8l-2-2M15 8l-2 2',
  select: 'M3 2v11l3-3 2 4 2-1-2-4h4z',
  Point: 'M8 6a2 2 0 1 0 .01 0z',
  LineString: 'M2 13 6 5l4 5 4-7',
  Rectangle: 'M2 4h12v8H2z',
  Polygon: 'M8 2l6 5-2 7H4L2 7z',
  remove: 'M3 4h10M6 4V2h4v2M4 4l1 10h6l1-10M7 7v4M9 7v4',
  full: 'M2 6V2h4M10 2h4v4M14 10v4h-4M6 14H2v-4',
};

/**
 * @param {keyof typeof paths} name
 * @returns {SVGSVGElement}
 */
export function icon(name) {
  const space = 'http://www.w3.org/2000/svg';
  const svg = document.createElementNS(space, 'svg');
  svg.setAttribute('viewBox', '0 0 16 16');
  svg.setAttribute('aria-hidden', 'true');
  svg.classList.add('icon');
  const path = document.createElementNS(space, 'path');
  path.setAttribute('d', paths[name]);
  svg.append(path);
  return svg;
}
