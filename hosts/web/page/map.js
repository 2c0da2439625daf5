// SPDX-License-Identifier: GPL-2.0-or-later
// The map: what the frame in focus shows, its view, the buttons beside it.
import OlMap from 'ol/Map.js';
import View from 'ol/View.js';
import { defaults as defaultControls } from 'ol/control/defaults.js';
import Control from 'ol/control/Control.js';
import ScaleLine from 'ol/control/ScaleLine.js';
import { defaults as defaultInteractions } from 'ol/interaction/defaults.js';
import Projection from 'ol/proj/Projection.js';
import { el } from './dom.js';
import { Graphics } from './graphics.js';
import { icon } from './icons.js';
import { ShapeLayer } from './shapelayer.js';

/** @typedef {import('./program.js').Program} Program */
/** @typedef {import('./contents.js').Frame} Frame */
/** @typedef {import('./contents.js').Item} Item */

const units = /** @type {Record<string, 'degrees'|'m'>} */ ({ degrees: 'degrees', metres: 'm' });

/**
 * What is drawn of a frame: layers that are ticked, and so are all groups that they stand in.
 * @param {Frame} frame
 * @returns {Item[]}
 */
function drawn(frame) {
  /** @type {Item[]} */
  const items = [];
  let hidden = Infinity;
  for (const item of frame.items) {
    if (item.depth > hidden) continue;
    hidden = item.checked ? Infinity : item.depth;
    if (item.checked && (item.kind === 'layer' || item.kind === 'raster')) items.push(item);
  }
  return items;
}

export class MapView {
  /**
   * @param {Program} program
   * @param {{units?: string}} module
   * @param {(text: string) => void} showPlace
   */
  constructor(program, module, showPlace) {
    this.program = program;
    this.element = el('div', { className: 'map' });
    this.projection = new Projection({
      code: 'module',
      units: units[module.units ?? ''] ?? 'm',
      ...(units[module.units ?? ''] ? {} : { metersPerUnit: 1 }),
    });
    this.layer = new ShapeLayer(program);
    this.map = new OlMap({
      target: this.element,
      layers: [this.layer],
      // Also while something else has the focus: the first drag moves the map, too.
      interactions: defaultInteractions({
        onFocusOnly: false,
        altShiftDragRotate: false,
        pinchRotate: false,
      }),
      controls: defaultControls({ rotate: false, attribution: false }).extend(
        units[module.units ?? ''] ? [new ScaleLine()] : [],
      ),
      view: new View({
        projection: this.projection,
        center: [0, 0],
        resolution: 1,
        enableRotation: false,
      }),
    });
    this.element.tabIndex = 0;
    this.element.setAttribute('role', 'application');
    this.element.setAttribute('aria-label', 'Map');
    this.graphics = new Graphics(program, this.map);
    /** @type {Frame|null} */
    this.frame = null;
    this.frames = new Map();
    this.map.on('moveend', () => this.tellExtent());
    this.map.on('pointermove', (event) => {
      const [x, y] = event.coordinate;
      const places = this.projection.getUnits() === 'degrees' ? 3 : 0;
      showPlace(`${x.toFixed(places)}, ${y.toFixed(places)}`);
    });
    this.map.addControl(this.fullExtentButton());
    this.sources = el('div', { className: 'attribution', role: 'note', 'aria-label': 'Sources' });
    this.element.append(this.sources);
  }

  fullExtentButton() {
    const button = el(
      'button',
      { type: 'button', title: 'Full extent', 'aria-label': 'Full extent' },
      icon('full'),
    );
    button.onclick = () => this.goTo(this.fullExtent());
    const element = el('div', { className: 'ol-unselectable ol-control full-extent' }, button);
    return new Control({ element });
  }

  /** @param {Frame[]} frames */
  show(frames) {
    const frame = frames.find((one) => one.focus) ?? frames[0] ?? null;
    const other = frame?.id !== this.frame?.id;
    this.frame = frame;
    const items = frame ? drawn(frame) : [];
    this.layer.show(items);
    this.sources.textContent = [
      ...new Set(items.map((item) => item.attribution).filter(Boolean)),
    ].join(' · ');
    if (!frame) return;
    if (other) {
      this.graphics.forFrame(frame.id);
      this.goTo(frame.shown ?? this.fullExtent());
    }
  }

  fullExtent() {
    const box = [Infinity, Infinity, -Infinity, -Infinity];
    for (const { extent } of this.frame?.items ?? []) {
      if (!extent) continue;
      box[0] = Math.min(box[0], extent[0]);
      box[1] = Math.min(box[1], extent[1]);
      box[2] = Math.max(box[2], extent[2]);
      box[3] = Math.max(box[3], extent[3]);
    }
    return box[0] <= box[2] ? box : [-1, -1, 1, 1];
  }

  /** @param {number[]} box */
  goTo(box) {
    const [xMin, yMin, xMax, yMax] = box;
    const least = this.projection.getUnits() === 'degrees' ? 1e-4 : 10;
    const width = Math.max(xMax - xMin, least);
    const height = Math.max(yMax - yMin, least);
    const [x, y] = [(xMin + xMax) / 2, (yMin + yMax) / 2];
    this.map.getView().fit([x - width / 2, y - height / 2, x + width / 2, y + height / 2], {
      size: this.map.getSize(),
    });
  }

  /** A tool has moved the view of the frame in focus. */
  moved() {
    const { frames } = this.program.ask('contents');
    const frame = frames.find((/** @type {Frame} */ one) => one.focus);
    if (frame?.shown) this.goTo(frame.shown);
  }

  tellExtent() {
    if (!this.frame) return;
    const box = this.map.getView().calculateExtent(this.map.getSize());
    this.program.do(0, 'extent', { frame: this.frame.id, box });
  }
}
