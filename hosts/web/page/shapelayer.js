// SPDX-License-Identifier: GPL-2.0-or-later
// All layers of the map on one canvas, drawn out of the program's own arrays.
import Layer from 'ol/layer/Layer.js';
import { address } from './files.js';
import { pointPicture, selectedColour, symbolsOf } from './symbols.js';

/** @typedef {import('./program.js').Program} Program */
/** @typedef {import('./contents.js').Item} Item */
/** @typedef {import('ol/Map.js').FrameState} FrameState */
/**
 * @typedef {{xy: Float64Array, partEnds: Uint32Array, shapeEnds: Uint32Array, kinds: Uint8Array,
 *   states: Uint16Array}} Shapes
 * @typedef {{left: number, top: number, scale: number, width: number, height: number,
 *   ratio: number}} Place from coordinates to pixels
 */

const selectedState = 0x8000;
const hiddenState = 0x7fff;
const points = 1;
const polygons = 3;
// A frame that takes longer is not drawn anew while the map is dragged.
const slowFrame = 45;

export class ShapeLayer extends Layer {
  /** @param {Program} program */
  constructor(program) {
    super({});
    this.program = program;
    /** @type {Item[]} the topmost first */
    this.items = [];
    this.canvas = document.createElement('canvas');
    this.canvas.className = 'map-canvas';
    this.kept = document.createElement('canvas');
    /** @type {Place|null} of what is kept */
    this.keptPlace = null;
    this.took = 0;
    /** @type {Map<string, HTMLImageElement>} */
    this.pictures = new Map();
    /** @type {Map<number, {revision: number, places: Record<string, number[]>}>} */
    this.known = new Map();
  }

  /** @param {Item[]} items */
  show(items) {
    this.items = items;
    this.keptPlace = null;
    this.changed();
  }

  /**
   * @override
   * @param {FrameState} state
   */
  render(state) {
    const ratio = state.pixelRatio;
    const [width, height] = state.size.map((length) => Math.round(length * ratio));
    const scale = ratio / state.viewState.resolution;
    const [x, y] = state.viewState.center;
    /** @type {Place} */
    const place = {
      left: width / 2 - x * scale,
      top: height / 2 + y * scale,
      scale,
      width,
      height,
      ratio,
    };
    if (this.canvas.width !== width || this.canvas.height !== height) {
      this.canvas.width = width;
      this.canvas.height = height;
      this.canvas.style.width = `${state.size[0]}px`;
      this.canvas.style.height = `${state.size[1]}px`;
      this.keptPlace = null;
    }
    const moving = state.viewHints.some((hint) => hint > 0);
    if (moving && this.keptPlace && this.took > slowFrame) this.drawKept(place, this.keptPlace);
    else this.drawAll(place);
    return this.canvas;
  }

  /**
   * The picture drawn last, where it would lie now.
   * @param {Place} now
   * @param {Place} then
   */
  drawKept(now, then) {
    const context = this.canvas.getContext('2d');
    if (!context) return;
    const factor = now.scale / then.scale;
    context.setTransform(1, 0, 0, 1, 0, 0);
    context.clearRect(0, 0, now.width, now.height);
    context.drawImage(
      this.kept,
      now.left - then.left * factor,
      now.top - then.top * factor,
      then.width * factor,
      then.height * factor,
    );
  }

  /** @param {Place} place */
  drawAll(place) {
    const context = this.canvas.getContext('2d');
    if (!context) return;
    const start = performance.now();
    context.setTransform(1, 0, 0, 1, 0, 0);
    context.clearRect(0, 0, place.width, place.height);
    for (const item of [...this.items].reverse()) {
      context.globalAlpha = item.symbols?.opacity ?? item.opacity ?? 1;
      if (item.kind === 'raster') this.drawPicture(context, place, item);
      else this.drawShapes(context, place, item);
    }
    context.globalAlpha = 1;
    this.took = performance.now() - start;
    if (this.took > slowFrame) {
      this.kept.width = place.width;
      this.kept.height = place.height;
      this.kept.getContext('2d')?.drawImage(this.canvas, 0, 0);
      this.keptPlace = place;
    }
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {Place} place
   * @param {Item} item
   */
  drawPicture(context, place, item) {
    if (!item.picture || !item.extent) return;
    let image = this.pictures.get(item.picture);
    if (!image) {
      image = new Image();
      image.onload = () => this.changed();
      image.src = address(item.picture);
      this.pictures.set(item.picture, image);
    }
    if (!image.complete || image.naturalWidth === 0) return;
    const [xMin, yMin, xMax, yMax] = item.extent;
    context.drawImage(
      image,
      place.left + xMin * place.scale,
      place.top - yMax * place.scale,
      (xMax - xMin) * place.scale,
      (yMax - yMin) * place.scale,
    );
  }

  /**
   * The program's arrays of a layer. They are looked at anew each time, as its memory may grow.
   * @param {Item} item
   * @returns {Shapes}
   */
  shapesOf(item) {
    let known = this.known.get(item.id);
    if (!known || known.revision !== item.revision) {
      known = {
        revision: item.revision ?? 0,
        places: this.program.ask('shapes', { item: item.id }),
      };
      this.known.set(item.id, known);
    }
    const { places } = known;
    const { memory } = this.program;
    /**
     * @template T
     * @param {new (buffer: ArrayBuffer, at: number, length: number) => T} Kind
     * @param {string} key
     */
    const view = (Kind, key) =>
      places[key][1] === 0
        ? new Kind(memory, 0, 0)
        : new Kind(memory, places[key][0], places[key][1]);
    return {
      xy: view(Float64Array, 'xy'),
      partEnds: view(Uint32Array, 'partEnds'),
      shapeEnds: view(Uint32Array, 'shapeEnds'),
      kinds: view(Uint8Array, 'kinds'),
      states: view(Uint16Array, 'states'),
    };
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {Place} place
   * @param {Item} item
   */
  drawShapes(context, place, item) {
    const shapes = this.shapesOf(item);
    const symbols = symbolsOf(item.symbols);
    for (const selected of [false, true]) {
      /** @type {number[][]} places of shapes that are no points, by class */
      const byClass = symbols.map(() => []);
      const pictures = symbols.map((symbol) => pointPicture(symbol, place.ratio, selected));
      for (let i = 0; i < shapes.states.length; i++) {
        const state = shapes.states[i];
        const number = state & ~selectedState;
        if (number === hiddenState || state >= selectedState !== selected) continue;
        if (shapes.kinds[i] === points) {
          this.drawPoints(context, place, shapes, i, pictures[number]);
        } else if (shapes.kinds[i] > points) byClass[number].push(i);
      }
      byClass.forEach((list, number) => {
        if (list.length > 0)
          this.drawPaths(context, place, shapes, list, symbols[number], selected);
      });
    }
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {Place} place
   * @param {Shapes} shapes
   * @param {number} shape
   * @param {HTMLCanvasElement} picture
   */
  drawPoints(context, place, { xy, partEnds, shapeEnds }, shape, picture) {
    const firstPart = shape === 0 ? 0 : shapeEnds[shape - 1];
    const first = firstPart === 0 ? 0 : partEnds[firstPart - 1];
    const end = partEnds[shapeEnds[shape] - 1];
    const half = picture.width / 2;
    for (let i = first; i < end; i++) {
      const x = place.left + xy[2 * i] * place.scale;
      const y = place.top - xy[2 * i + 1] * place.scale;
      if (x < -half || y < -half || x > place.width + half || y > place.height + half) continue;
      context.drawImage(picture, Math.round(x - half), Math.round(y - half));
    }
  }

  /**
   * @param {CanvasRenderingContext2D} context
   * @param {Place} place
   * @param {Shapes} shapes
   * @param {number[]} list
   * @param {import('./symbols.js').Symbol} symbol
   * @param {boolean} selected
   */
  drawPaths(context, place, shapes, list, symbol, selected) {
    const path = new Path2D();
    let areas = false;
    for (const shape of list) {
      areas = areas || shapes.kinds[shape] === polygons;
      const firstPart = shape === 0 ? 0 : shapes.shapeEnds[shape - 1];
      for (let part = firstPart; part < shapes.shapeEnds[shape]; part++) {
        addPart(path, place, shapes, part);
      }
    }
    const fill = selected ? `${selectedColour}90` : symbol.fill;
    if (areas && fill) {
      context.fillStyle = fill;
      context.fill(path, 'evenodd');
    }
    const stroke = selected ? selectedColour : symbol.stroke;
    if (!stroke) return;
    context.strokeStyle = stroke;
    context.lineWidth = Math.max(symbol.width ?? 1, selected ? 2 : 0) * place.ratio;
    context.setLineDash((symbol.dash ?? []).map((length) => length * place.ratio));
    context.stroke(path);
    context.setLineDash([]);
  }
}

/**
 * Points that fall on the pixel of the one before are left out.
 * @param {Path2D} path
 * @param {Place} place
 * @param {Shapes} shapes
 * @param {number} part
 */
function addPart(path, place, { xy, partEnds }, part) {
  const first = part === 0 ? 0 : partEnds[part - 1];
  const end = partEnds[part];
  let lastX = NaN;
  let lastY = NaN;
  for (let i = first; i < end; i++) {
    const x = place.left + xy[2 * i] * place.scale;
    const y = place.top - xy[2 * i + 1] * place.scale;
    if (i === first) path.moveTo(x, y);
    else if (i === end - 1 || Math.abs(x - lastX) > 0.7 || Math.abs(y - lastY) > 0.7) {
      path.lineTo(x, y);
    } else continue;
    lastX = x;
    lastY = y;
  }
}
