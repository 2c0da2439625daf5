// SPDX-License-Identifier: GPL-2.0-or-later
// Graphics that a student draws: a point, line, rectangle or polygon; selected ones are what
// "Select by Graphics" goes by.
import Draw, { createBox } from 'ol/interaction/Draw.js';
import Select from 'ol/interaction/Select.js';
import VectorLayer from 'ol/layer/Vector.js';
import VectorSource from 'ol/source/Vector.js';
import WKT from 'ol/format/WKT.js';
import { el } from './dom.js';
import { icon } from './icons.js';

/** @typedef {import('./program.js').Program} Program */

const tools = /** @type {const} */ ([
  ['pan', 'Move the map'],
  ['select', 'Select graphics'],
  ['Point', 'Draw a point'],
  ['LineString', 'Draw a line'],
  ['Rectangle', 'Draw a rectangle'],
  ['Polygon', 'Draw a polygon'],
]);

export class Graphics {
  /**
   * @param {Program} program
   * @param {import('ol/Map.js').default} map
   */
  constructor(program, map) {
    this.program = program;
    this.map = map;
    /** @type {Map<number, VectorSource>} by frame */
    this.sources = new Map();
    this.layer = new VectorLayer({ zIndex: 1 });
    map.addLayer(this.layer);
    this.select = new Select({ layers: [this.layer], hitTolerance: 5 });
    this.select.on('select', () => this.tell());
    this.select.setActive(false);
    map.addInteraction(this.select);
    /** @type {Draw|null} */
    this.draw = null;
    this.bar = el('div', { className: 'graphics-bar', role: 'toolbar', 'aria-label': 'Graphics' });
    for (const [tool, title] of tools) this.addButton(tool, title);
    const title = 'Delete the selected graphics';
    const remove = el('button', { type: 'button', title, 'aria-label': title }, icon('remove'));
    remove.onclick = () => this.remove();
    this.bar.append(remove);
    this.use('pan');
  }

  /**
   * @param {(typeof tools)[number][0]} tool
   * @param {string} title
   */
  addButton(tool, title) {
    const button = el(
      'button',
      { type: 'button', title, 'aria-label': title, 'data-tool': tool },
      icon(tool),
    );
    button.onclick = () => this.use(tool);
    this.bar.append(button);
  }

  /** @param {number} frame */
  forFrame(frame) {
    let source = this.sources.get(frame);
    if (!source) {
      source = new VectorSource();
      this.sources.set(frame, source);
    }
    this.select.getFeatures().clear();
    this.layer.setSource(source);
    this.use('pan');
  }

  /** @param {string} tool */
  use(tool) {
    for (const button of this.bar.querySelectorAll('[data-tool]')) {
      button.setAttribute(
        'aria-pressed',
        String(/** @type {HTMLElement} */ (button).dataset.tool === tool),
      );
    }
    if (this.draw) this.map.removeInteraction(this.draw);
    this.draw = null;
    this.select.setActive(tool === 'select');
    const source = this.layer.getSource();
    if (tool === 'pan' || tool === 'select' || !source) return;
    const box = tool === 'Rectangle';
    this.draw = new Draw({
      source,
      type: box ? 'Circle' : /** @type {'Point'} */ (tool),
      ...(box ? { geometryFunction: createBox() } : {}),
    });
    // What was drawn is selected, as a map application does.
    this.draw.on('drawend', (event) => {
      this.select.getFeatures().clear();
      this.select.getFeatures().push(event.feature);
      this.tell();
      setTimeout(() => this.use('select'));
    });
    this.map.addInteraction(this.draw);
  }

  remove() {
    for (const feature of [...this.select.getFeatures().getArray()]) {
      this.layer.getSource()?.removeFeature(feature);
    }
    this.select.getFeatures().clear();
    this.tell();
  }

  tell() {
    const format = new WKT();
    const shapes = this.select
      .getFeatures()
      .getArray()
      .map((feature) => format.writeFeature(feature));
    this.program.do(0, 'graphics', { shapes });
  }
}
