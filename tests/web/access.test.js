// SPDX-License-Identifier: GPL-2.0-or-later
// Who can't see or point: roles, names, keys, contrast, on the page and on each form.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import { after, before, describe, test } from 'node:test';
import { Desk } from './site.js';

const axe = fs.readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const forms = [
  ['cmdStats', 'brelmon_ThemeIDDialog'],
  ['cmdSelByAttBrelmon', 'brelmon_ModQueryDialog'],
  ['cmdSumBrelmon', 'frm_Brelmon_Summarize'],
  ['cmdQuickLoad', 'brelmon_QuickJumpDialog'],
  ['cmdMediaViewer', 'brelmon_MediaDialog'],
  ['cmdAbout', 'frmAbout'],
  ['cmdQLAddQuery', 'frm_InputQuery'],
  ['cmdQLAddSpatial', 'frm_InputSpatialBookmark'],
  ['cmdQLDelete', 'frm_QLDelete'],
  ['OpenTable', 'Table'],
];

describe('access', () => {
  let desk;
  before(async () => {
    desk = await Desk.open();
    // As a developer's tools would: the page's own policy lets no other script in.
    await desk.page.evaluate(axe);
    await desk.pick('quakes');
  });
  after(async () => {
    await desk.close();
  });

  const serious = (scope) =>
    desk.page.evaluate(async (within) => {
      const { violations } = await globalThis.axe.run(within);
      return violations
        .filter((one) => one.impact === 'serious' || one.impact === 'critical')
        .map((one) => `${one.id}: ${one.nodes.map((node) => node.html.slice(0, 120)).join(' | ')}`);
    }, scope);

  for (const scheme of ['light', 'dark']) {
    test(`nothing serious in ${scheme}`, async (context) => {
      await desk.page.emulateMedia({ colorScheme: scheme });
      await context.test('the page', async () => assert.deepEqual(await serious('#desk'), []));
      for (const [command, name] of forms) {
        await context.test(name, async () => {
          await desk.command(command);
          await desk.form(name).waitFor();
          const found = await serious(`[data-name=${name}]`);
          await desk.form(name).locator('.window-close').click();
          await desk.settle();
          assert.deepEqual(found, []);
        });
      }
    });
  }

  test('a dialog holds the focus and gives it back', async () => {
    await desk.page.locator('.toolbar [data-class=cmdQuickLoad]').focus();
    await desk.page.keyboard.press('Enter');
    const form = desk.form('brelmon_QuickJumpDialog');
    await form.waitFor();
    for (let i = 0; i < 12; i++) {
      await desk.page.keyboard.press('Tab');
      assert.ok(await form.evaluate((element) => element.contains(document.activeElement)));
    }
    await desk.page.keyboard.press('Escape');
    await form.waitFor({ state: 'detached' });
    await desk.settle();
    assert.equal(
      await desk.page.evaluate(() => document.activeElement.dataset.class),
      'cmdQuickLoad',
    );
  });
});
