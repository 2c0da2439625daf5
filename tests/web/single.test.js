// SPDX-License-Identifier: GPL-2.0-or-later
// A module published into scripts, opened from a folder without any server.
import assert from 'node:assert/strict';
import path from 'node:path';
import { pathToFileURL } from 'node:url';
import { describe, test } from 'node:test';
import { browsers, buildFolder, Desk } from './site.js';

const address = pathToFileURL(path.join(buildFolder, 'single/index.html')).href;

for (const browser of browsers) {
  describe(`from a memory stick in ${browser}`, () => {
    test('the module opens and answers, and asks for nothing else', async () => {
      const desk = await Desk.open({ browser, address });
      try {
        await desk.pick('quakes');
        await desk.command('OpenTable');
        await desk.form('Table').getByText('0 of 1707 rows selected').waitFor();
        assert.deepEqual(
          desk.requests.filter((one) => !/^(file|data|blob):/u.test(one)),
          [],
        );
        assert.deepEqual(desk.faults, []);
      } finally {
        await desk.close();
      }
    });
  });
}
