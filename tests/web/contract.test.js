// SPDX-License-Identifier: GPL-2.0-or-later
// The contract of hosts over the host in a page, in a real browser.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import { after, before, describe, test } from 'node:test';
import { browsers, buildFolder, launch, serve, siteFolder } from './site.js';

/** Where each module of the contract is published, by its map document. */
const folders = {
  'samples/earth/earth.qgs': 'site',
  'tests/contract/kinds/kinds.qgs': 'kinds',
};

/** Names of the files that a module's page loads, with their bytes in base64. */
function filesOf(document) {
  const folder = path.join(buildFolder, folders[document]);
  const module = JSON.parse(fs.readFileSync(path.join(folder, 'module.json'), 'utf8'));
  const tables = Object.values(module.sources).map((source) => source.file);
  const texts = module.texts.map((text) => `module/${text}`);
  return ['module.json', ...new Set(tables.filter(Boolean)), ...texts].map((name) => [
    `${document}/${name}`,
    fs.readFileSync(path.join(folder, name)).toString('base64'),
  ]);
}

/** Runs in the page: makes the program, puts the modules in, gives names and results. */
const runAll = async (files) => {
  const program = await globalThis.BrelmonProgram({
    page: { tell() {}, beginWait: () => ({}) },
    locateFile: (name) => `programs/${name}`,
  });
  const put = (bytes) => {
    const at = program._malloc(bytes.length);
    program.HEAPU8.set(bytes, at);
    return at;
  };
  for (const [name, base64] of files) {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const at = put(bytes);
    program._contract_put(put(new TextEncoder().encode(`${name}\0`)), at, bytes.length);
    program._free(at);
  }
  const results = [];
  for (let i = 0; ; i++) {
    const name = program.UTF8ToString(program._contract_name(i));
    if (!name) return results;
    results.push([name, program.UTF8ToString(program._contract_run(i))]);
  }
};

for (const kind of browsers) {
  describe(`the contract in ${kind}`, () => {
    let browser, server;
    before(async () => {
      server = await serve(siteFolder);
      browser = await launch(kind);
    });
    after(async () => {
      await browser.close();
      server.close();
    });

    test('every case holds', async (context) => {
      const page = await browser.newPage();
      await page.goto(`${server.address}empty.html`);
      await page.addScriptTag({ url: 'programs/contract.js' });
      const results = await page.evaluate(runAll, Object.keys(folders).flatMap(filesOf));
      assert.ok(results.length > 20, `${results.length} cases`);
      for (const [name, reason] of results) {
        await context.test(name, () => assert.equal(reason, ''));
      }
    });
  });
}
