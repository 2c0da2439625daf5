// SPDX-License-Identifier: GPL-2.0-or-later
// What a module can't do: reach another address, put markup or script on the page.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { describe, test } from 'node:test';
import { Desk, siteFolder } from './site.js';

const evil = '<img src=x onerror="document.title=1"><script>document.title=1</script>';

/** The sample with every text that a module may bring turned against the page. */
function hostileSite() {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'brelmon-hostile-'));
  fs.cpSync(siteFolder, folder, { recursive: true });
  const module = JSON.parse(fs.readFileSync(path.join(folder, 'module.json'), 'utf8'));
  module.title = evil;
  for (const frame of module.frames) {
    frame.name = evil;
    for (const item of frame.items) {
      item.name = evil + item.name;
      item.picture &&= 'https://example.org/x.png';
      item.aliases = { MAG: evil };
      item.attribution = `${evil}&copy; nobody`;
    }
  }
  module.frames[0].items[0].symbols = {
    type: 'categorized',
    field: 'NET',
    classes: [{ value: null, label: evil, symbol: { fill: 'url(https://example.org/)', size: 5 } }],
  };
  fs.writeFileSync(path.join(folder, 'module.json'), JSON.stringify(module));
  const list = [
    'What this module brings along.',
    `${evil}:images/faults.png,1`,
    // The list's own mark stands for a colon in an address.
    'Script:javascript\u00dfdocument.title=1,3',
    'Elsewhere:..\\..\\secret.png,1',
    'Data:data\u00dftext/html;base64,3',
  ];
  const bytes = Buffer.from(`${list.join('\r\n')}\r\n`, 'latin1');
  fs.writeFileSync(path.join(folder, 'module/media_list.txt'), bytes);
  const quickLoad = ['<Query>', evil, `'${evil}' = "MAG"`, ''];
  fs.writeFileSync(path.join(folder, 'module/QuickLoad.txt'), quickLoad.join('\r\n'));
  return folder;
}

describe('safety', () => {
  test('the page asks its own address alone', async () => {
    const desk = await Desk.open();
    try {
      await desk.pick('quakes');
      await desk.command('cmdQuickLoad');
      await desk.closeForm('brelmon_QuickJumpDialog');
      const elsewhere = desk.requests.filter(
        (one) => !one.startsWith(desk.server.address) && !/^(data|blob):/u.test(one),
      );
      assert.deepEqual(elsewhere, []);
    } finally {
      await desk.close();
    }
  });

  test('a hostile module does nothing', async () => {
    const folder = hostileSite();
    const desk = await Desk.open({ folder });
    try {
      await desk.page.locator('[data-kind=layer]').first().click();
      for (const [command, form] of [
        ['cmdStats', 'brelmon_ThemeIDDialog'],
        ['cmdSelByAttBrelmon', 'brelmon_ModQueryDialog'],
        ['OpenTable', 'Table'],
      ]) {
        await desk.command(command);
        await desk.closeForm(form);
      }
      await desk.command('cmdMediaViewer');
      const list = desk.control('brelmon_MediaDialog', 'lbxAll').getByRole('option');
      await list.filter({ hasText: /^Script/u }).click();
      await desk.press('brelmon_MediaDialog', 'cmdOK');
      assert.equal(desk.context.pages().length, 1, 'an address of a script opens nothing');
      assert.equal(await desk.page.title(), evil);
      assert.equal(await desk.page.getByRole('note').innerText(), `${evil}&copy; nobody`);
      assert.equal(await desk.page.locator('img[src=x], #desk script, #windows script').count(), 0);
      const asked = desk.requests.filter(
        (one) => !one.startsWith(desk.server.address) && !/^(data|blob):/u.test(one),
      );
      assert.deepEqual(asked, []);
    } finally {
      await desk.close();
      fs.rmSync(folder, { recursive: true });
    }
  });
});
