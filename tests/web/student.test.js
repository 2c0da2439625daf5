// SPDX-License-Identifier: GPL-2.0-or-later
// What a student does with the sample, by clicks and keys, in every browser.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, describe, test } from 'node:test';
import { browsers, commandLine, Desk, sourceFolder } from './site.js';

const query = 'brelmon_ModQueryDialog';
const themes = 'brelmon_ThemeIDDialog';
const summarize = 'frm_Brelmon_Summarize';
const quickLoad = 'brelmon_QuickJumpDialog';
const media = 'brelmon_MediaDialog';

/** What the browser has stored of the summary, but for the date that it was written on. */
async function storedTable(desk) {
  const bytes = await desk.page.evaluate(
    () =>
      new Promise((resolve, reject) => {
        const request = indexedDB.open('brelmon');
        request.onerror = () => reject(request.error);
        request.onsuccess = () => {
          const all = request.result.transaction('files').objectStore('files').getAll();
          all.onsuccess = () => {
            request.result.close();
            resolve(Array.from(all.result.find((one) => /summary\.dbf$/u.test(one.path)).bytes));
          };
        };
      }),
  );
  return Buffer.from(bytes).fill(0, 1, 4);
}

function summaryByCommandLine() {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'brelmon-summary-'));
  try {
    const file = path.join(folder, 'summary.dbf');
    const module = path.join(sourceFolder, 'samples/earth');
    const asked = ['summarize', 'quakes', 'NET', '--stat', 'Maximum:MAG', '--all', '--output'];
    execFileSync(commandLine, [module, ...asked, file]);
    return fs.readFileSync(file).fill(0, 1, 4);
  } finally {
    fs.rmSync(folder, { recursive: true });
  }
}

for (const browser of browsers) {
  describe(`the sample in ${browser}`, () => {
    let desk;
    before(async () => {
      desk = await Desk.open({ browser });
    });
    after(async () => {
      await desk.close();
    });

    test('statistics are the command line’s, byte for byte', async () => {
      await desk.pick('quakes');
      await desk.command('cmdStats');
      await desk.choose(themes, 'lbxField', 'MAG');
      await desk.choose(themes, 'lbxField', 'STATIONS', { modifiers: ['Control'] });
      await desk.press(themes, 'chkNoData');
      await desk.control(themes, 'txtNoData').fill('-9999');
      await desk.press(themes, 'cmdOK');
      const report = desk.page.locator('.window textarea').first();
      await report.waitFor();
      const due = fs.readFileSync(
        path.join(sourceFolder, 'tests/cli/expected/quakes-mag-stations.txt'),
        'utf8',
      );
      assert.equal(`${(await report.inputValue()).trimEnd()}\n`, due);
      await desk.shot('statistics');
      await desk.page.locator('.window-close').first().click();
    });

    test('the class question by clicks', async () => {
      await desk.pick('quakes');
      await desk.command('cmdSelByAttBrelmon');
      await desk.chooseTwice(query, 'lbxFields', 'DEPTH_KM');
      await desk.press(query, 'cmdGreater');
      await desk.page.keyboard.type('300');
      await desk.press(query, 'cmdAnd');
      await desk.chooseTwice(query, 'lbxFields', 'MAG');
      await desk.press(query, 'cmdGreater');
      await desk.press(query, 'cmdUpdate');
      await desk.settle();
      await desk.settle();
      // A letter or digit leads to the first row that begins so.
      await desk.control(query, 'lbxValues').press('5');
      await desk.chooseTwice(query, 'lbxValues', '5');
      assert.equal(await desk.text(query, 'txtQuery'), '( "DEPTH_KM" > 300) AND ( "MAG" > 5 )');
      await desk.press(query, 'cmdNewSet');
      assert.equal(await desk.text(query, 'lblNumSelected'), 'Number of features highlighted = 1');
      await desk.shot('query');
      await desk.closeForm(query);
    });

    test('a summary by network is the command line’s table', async () => {
      await desk.pick('quakes');
      await desk.command('cmdSelectNone');
      await desk.command('cmdSumBrelmon');
      await desk.select(summarize, 'cbxFieldName', 'NET');
      const tree = desk.form(summarize).getByRole('tree');
      await tree
        .getByRole('treeitem', { name: 'MAG', exact: true })
        .locator('.tree-opener')
        .click();
      await tree.getByRole('treeitem', { name: 'Maximum', exact: true }).click();
      await desk.settle();
      await desk.shot('summarize');
      await desk.press(summarize, 'cmdOK');
      const table = desk.form('Table');
      await table.waitFor();
      assert.match(await table.locator('.grid-head').innerText(), /Min_NET.*Cnt_NET.*Max_MAG/su);
      await desk.page.getByText('summary.dbf is kept in this browser.').waitFor();
      assert.deepEqual(await storedTable(desk), summaryByCommandLine());
      await desk.shot('summary-table');
      await desk.closeForm('Table');
    });

    test('QuickLoad goes to a place, adds a layer, offers a query', async () => {
      await desk.command('cmdQuickLoad');
      await desk.form(quickLoad).getByRole('radio', { name: 'Layers' }).click();
      await desk.settle();
      await desk.choose(quickLoad, 'lbxList', 'Strong quakes');
      await desk.press(quickLoad, 'cmdOK');
      await desk.item('Strong quakes').waitFor();
      await desk.command('cmdQuickLoad');
      await desk.form(quickLoad).getByRole('radio', { name: 'Spatial Bookmarks' }).click();
      await desk.settle();
      await desk.choose(quickLoad, 'lbxList', 'Mediterranean');
      await desk.press(quickLoad, 'cmdOK');
      const { shown } = await desk.page.evaluate(() =>
        globalThis.brelmon.ask('contents').frames.find((frame) => frame.focus),
      );
      assert.ok(shown[0] <= -6.4 && shown[2] >= 36.9 && shown[2] - shown[0] < 120, `${shown}`);
    });

    test('media open in a tab that knows nothing of the page', async () => {
      await desk.command('cmdMediaViewer');
      await desk.choose(media, 'lbxAll', 'Three kinds of faults   (Image)');
      const opened = desk.context.waitForEvent('page');
      await desk.press(media, 'cmdOK');
      const tab = await opened;
      await tab.waitForURL(/module\/images\/faults\.png$/u);
      assert.equal(await tab.evaluate(() => globalThis.opener), null);
      await tab.close();
      await desk.closeForm(media);
    });

    test('select by graphics', async () => {
      await desk.page.locator('[data-tool=Rectangle]').click();
      const map = desk.page.locator('.map');
      const { width, height } = await map.boundingBox();
      await map.click({ position: { x: width / 4, y: height / 4 } });
      await map.click({ position: { x: (width * 3) / 4, y: (height * 3) / 4 } });
      await desk.settle();
      await desk.pick('countries');
      await desk.command('cmdSelByGraphic');
      await desk.page.getByRole('tab', { name: 'Selection' }).click();
      await desk.settle();
      const row = await desk.page
        .getByRole('treeitem', { name: /^countries \(\d+\)/u })
        .first()
        .innerText();
      assert.ok(Number(/\d+/u.exec(row)[0]) > 3, row);
      await desk.shot('graphics');
    });

    test('a reload starts afresh and goes on with the stored work', async () => {
      await desk.page.reload();
      await desk.page.waitForSelector('body[data-state="ready"]');
      assert.equal(await desk.item('summary').count(), 0);
      await desk.page.getByRole('button', { name: 'Go on with the stored work' }).click();
      await desk.item('summary').waitFor();
      await desk.page.getByRole('button', { name: 'Forget it' }).click();
    });

    test('nothing went wrong meanwhile', () => assert.deepEqual(desk.faults, []));
  });
}
