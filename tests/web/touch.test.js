// SPDX-License-Identifier: GPL-2.0-or-later
// A tablet: 1024 by 768, fingers alone.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import { after, before, describe, test } from 'node:test';
import { Desk, sourceFolder } from './site.js';

const themes = 'brelmon_ThemeIDDialog';

describe('a tablet', () => {
  let desk;
  before(async () => {
    desk = await Desk.open({ touch: true });
  });
  after(async () => {
    await desk.close();
  });

  test('everything on the page is in sight', async () => {
    const outside = await desk.page.evaluate(() =>
      [...document.querySelectorAll('header button, nav, .map, footer')]
        .filter((element) => element.checkVisibility())
        .filter((element) => {
          const box = element.getBoundingClientRect();
          return box.left < 0 || box.top < 0 || box.right > innerWidth || box.bottom > innerHeight;
        })
        .map((element) => element.title || element.className),
    );
    assert.deepEqual(outside, []);
  });

  test('statistics by taps', async () => {
    await desk.item('quakes').first().tap();
    await desk.page.locator('.toolbar [data-class=cmdStats]:enabled').tap();
    for (const field of ['MAG', 'STATIONS']) await desk.row(themes, 'lbxField', field).tap();
    await desk.control(themes, 'chkNoData').locator('input').tap();
    // -9999 stands there already.
    await desk.control(themes, 'cmdOK').tap();
    const report = desk.page.locator('.window textarea').first();
    await report.waitFor();
    const due = path.join(sourceFolder, 'tests/cli/expected/quakes-mag-stations.txt');
    assert.equal(`${(await report.inputValue()).trimEnd()}\n`, fs.readFileSync(due, 'utf8'));
    await desk.page.locator('.window-close').first().tap();
  });

  test('the map follows a finger', async () => {
    const frame = () =>
      desk.page.evaluate(
        () => globalThis.brelmon.ask('contents').frames.find((one) => one.focus).shown,
      );
    const before = await frame();
    const box = await desk.page.locator('.map').boundingBox();
    const finger = await desk.context.newCDPSession(desk.page);
    const at = (x) => [{ x: box.x + x, y: box.y + box.height / 2 }];
    const touch = (type, points) =>
      finger.send('Input.dispatchTouchEvent', { type, touchPoints: points });
    await touch('touchStart', at(500));
    for (let x = 480; x >= 300; x -= 20) await touch('touchMove', at(x));
    await touch('touchEnd', []);
    await desk.page.waitForFunction(
      (x) => globalThis.brelmon.ask('contents').frames.find((one) => one.focus).shown[0] > x,
      before[0] + 10,
    );
  });

  test('nothing went wrong meanwhile', () => assert.deepEqual(desk.faults, []));
});
