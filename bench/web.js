// SPDX-License-Identifier: GPL-2.0-or-later
// Measures published modules in Chromium: the sample, then modules of points.
import fs from 'node:fs';
import path from 'node:path';
import zlib from 'node:zlib';
import { Desk } from '../tests/web/site.js';

const [sample, ...modules] = process.argv.slice(2);
const dialog = 'brelmon_ThemeIDDialog';
const zipped = (name) =>
  zlib.gzipSync(fs.readFileSync(path.join(sample, name)), { level: 9 }).length;
const say = (what, figure, due) =>
  console.log(`${what.padEnd(44)} ${figure.padStart(10)}   ${due}`);
const kilobytes = (bytes) => `${(bytes / 1000).toFixed(0)} KB`;
const seconds = (milliseconds) => `${(milliseconds / 1000).toFixed(2)} s`;

const program = zipped('brelmon.wasm') + zipped('brelmon.js');
say('program, gzipped', kilobytes(program), 'under 600 KB');
const page = ['index.html', 'page.js', 'page.css'].map(zipped).reduce((a, b) => a + b);
say('page without data, gzipped', kilobytes(program + page), 'under 1000 KB');

async function timed(deed) {
  const start = performance.now();
  await deed();
  return performance.now() - start;
}

/** From the click on OK to the report. */
async function statistics(desk, layer, field) {
  await desk.pick(layer);
  await desk.command('cmdStats');
  await desk.choose(dialog, 'lbxField', field);
  const time = await timed(async () => {
    await desk.control(dialog, 'cmdOK').click();
    await desk.page.waitForSelector('.window textarea', { timeout: 60000 });
  });
  await desk.page.locator('.window-close').first().click();
  await desk.settle();
  return time;
}

/** Reading a table's bytes again, in the program. */
const reading = (desk) =>
  desk.page.evaluate(async () => {
    const module = await (await fetch('module.json')).json();
    const file = Object.values(module.sources).find((source) => source.file).file;
    const bytes = new Uint8Array(await (await fetch(file)).arrayBuffer());
    const start = performance.now();
    globalThis.brelmon.put('table', file, bytes);
    return performance.now() - start;
  });

/** Frames a second while the map is dragged. */
async function panning(desk) {
  await desk.page.evaluate(() => {
    globalThis.frames = 0;
    const count = () => {
      globalThis.frames++;
      requestAnimationFrame(count);
    };
    requestAnimationFrame(count);
  });
  const box = await desk.page.locator('.map').boundingBox();
  const [x, y] = [box.x + box.width / 2, box.y + box.height / 2];
  await desk.page.mouse.move(x, y);
  await desk.page.mouse.down();
  const before = await desk.page.evaluate(() => globalThis.frames);
  const start = performance.now();
  for (let i = 0; performance.now() - start < 3000; i++) {
    await desk.page.mouse.move(x + 100 * Math.sin(i / 10), y + 60 * Math.cos(i / 10));
  }
  const frames = (await desk.page.evaluate(() => globalThis.frames)) - before;
  await desk.page.mouse.up();
  return (frames * 1000) / (performance.now() - start);
}

let desk = await Desk.open({ folder: sample });
say('sample usable after opening', seconds(desk.openingTime), 'under 2 s');
await desk.close();

for (const folder of modules) {
  const module = JSON.parse(fs.readFileSync(path.join(folder, 'module.json'), 'utf8'));
  const { rows } = Object.values(module.sources)[0];
  const small = rows <= 100000;
  desk = await Desk.open({ folder });
  const count = rows.toLocaleString('en');
  say(
    `${count} rows of ten columns read`,
    seconds(await reading(desk)),
    small ? 'under 0.5 s' : '',
  );
  say(
    `statistics of ${count} rows`,
    seconds(await statistics(desk, 'points', 'MAG')),
    small ? 'under 0.5 s' : 'under 3 s',
  );
  const pace = `${(await panning(desk)).toFixed(0)} /s`;
  say(`frames while ${count} points are dragged`, pace, small ? 'from 15 /s' : '');
  await desk.close();
}
