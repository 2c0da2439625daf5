// SPDX-License-Identifier: GPL-2.0-or-later
// A published module in a real browser, worked as a student works it.
import fs from 'node:fs';
import http from 'node:http';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { chromium, firefox } from 'playwright-core';

const top = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
export const buildFolder = path.join(top, 'build/web');
export const siteFolder = path.join(buildFolder, 'site');
export const sourceFolder = top;
/** The program whose results the page's must be. */
export const commandLine =
  process.env.BRELMON_PROGRAM ?? path.join(top, 'build/release/cli/brelmon');
/** The browsers that are tested. */
export const browsers = (process.env.BRELMON_BROWSERS ?? 'chromium firefox').split(' ');

const types = {
  '.html': 'text/html',
  '.js': 'text/javascript',
  '.css': 'text/css',
  '.wasm': 'application/wasm',
  '.json': 'application/json',
  '.png': 'image/png',
};

/**
 * Serves files of a folder on the loopback address, below `programs/` the test programs, and an
 * empty page.
 */
export async function serve(folder) {
  const server = http.createServer((request, response) => {
    const name = decodeURIComponent(new URL(request.url, 'http://localhost').pathname);
    if (name === '/empty.html') {
      response
        .writeHead(200, { 'content-type': 'text/html' })
        .end('<!doctype html><title>Empty</title>');
      return;
    }
    const programs = name.startsWith('/programs/');
    const file = programs
      ? path.join(buildFolder, 'tests/web', path.basename(name))
      : path.join(folder, path.normalize(name.endsWith('/') ? `${name}index.html` : name));
    if (!fs.existsSync(file)) {
      response.writeHead(404).end();
      return;
    }
    const type = types[path.extname(file)] ?? 'application/octet-stream';
    response.writeHead(200, { 'content-type': type });
    fs.createReadStream(file).pipe(response);
  });
  await new Promise((done) => server.listen(0, '127.0.0.1', done));
  const { port } = server.address();
  return { address: `http://127.0.0.1:${port}/`, close: () => server.close() };
}

export function launch(browser) {
  if (browser === 'firefox') {
    // Firefox as it comes, driven through WebDriver BiDi.
    return firefox.launch({ channel: 'moz-firefox', executablePath: '/usr/bin/firefox-esr' });
  }
  return chromium.launch({
    executablePath: '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run'].concat(
      ['background-networking', 'component-update', 'sync'].map((what) => `--disable-${what}`),
    ),
  });
}

/** One page with the module open. Everything that goes wrong in it is kept in `faults`. */
export class Desk {
  faults = [];
  requests = [];

  /**
   * @param {{browser?: string, folder?: string, address?: string, query?: string,
   *   touch?: boolean}} options with `address` nothing is served, with `touch` it is a tablet
   */
  static async open({
    browser = 'chromium',
    folder = siteFolder,
    address,
    query = '',
    touch = false,
  } = {}) {
    const desk = new Desk();
    desk.kind = browser;
    desk.server = address ? null : await serve(folder);
    desk.browser = await launch(browser);
    desk.context = await desk.browser.newContext({
      ...(touch
        ? { viewport: { width: 1024, height: 768 }, hasTouch: true, isMobile: true }
        : { viewport: { width: 1200, height: 760 } }),
      // Not every browser can be told these.
      ...(browser === 'firefox'
        ? { colorScheme: null, reducedMotion: null, forcedColors: null, contrast: null }
        : {}),
    });
    desk.page = await desk.context.newPage();
    desk.page.setDefaultTimeout(30000);
    desk.context.on('request', (request) => desk.requests.push(request.url()));
    desk.page.on('pageerror', (fault) => desk.faults.push(fault.message));
    desk.page.on('console', (message) => {
      if (message.type() === 'error') desk.faults.push(message.text());
    });
    const base = address ?? `${desk.server.address}index.html`;
    const start = performance.now();
    await desk.page.goto(`${base}?now=2026-11-16T14:15:07&lang=en-US${query}`);
    await desk.page.waitForSelector('body[data-state="ready"]', { timeout: 60000 });
    /** Milliseconds until the module could be worked with. */
    desk.openingTime = performance.now() - start;
    return desk;
  }

  async close() {
    await this.browser.close();
    this.server?.close();
  }

  /** With BRELMON_SHOTS a picture in that folder. */
  async shot(name) {
    const folder = process.env.BRELMON_SHOTS;
    if (folder && this.kind !== 'firefox')
      await this.page.screenshot({ path: path.join(folder, `web-${name}.png`) });
  }

  async closeForm(name) {
    await this.form(name).locator('.window-close').first().click();
    await this.settle();
  }

  /** Until what was done is shown. */
  settle() {
    return this.page.evaluate(
      () =>
        new Promise((done) => {
          setTimeout(() => requestAnimationFrame(() => setTimeout(done)), 30);
        }),
    );
  }

  item(name) {
    return this.page.getByRole('treeitem', { name, exact: true });
  }
  async pick(name) {
    await this.item(name).first().click();
    await this.settle();
  }
  /** A click on a command, on the bar or in the menu. */
  async command(name) {
    const onBar = this.page.locator(`.toolbar [data-class=${name}]:enabled`);
    if ((await onBar.count()) === 0) await this.page.locator('.menu-opener').click();
    await this.page.locator(`[data-class=${name}]:enabled:visible`).first().click();
    await this.settle();
  }
  form(name) {
    return this.page.locator(`.window[data-name=${name}]`);
  }
  control(form, name) {
    return this.form(form).locator(`[data-control=${name}]`);
  }
  async press(form, name) {
    const control = this.control(form, name);
    const box = control.locator('input');
    await ((await box.count()) > 0 ? box : control).first().click();
    await this.settle();
  }
  row(form, name, text) {
    return this.control(form, name).getByRole('option', { name: text, exact: true });
  }
  async choose(form, name, text, options = {}) {
    await this.row(form, name, text).click(options);
    await this.settle();
  }
  async chooseTwice(form, name, text) {
    await this.row(form, name, text).click();
    // The double click of who has no mouse: a driven Firefox knows no other.
    await this.control(form, name).press('F2');
    await this.settle();
  }
  async select(form, name, label) {
    await this.control(form, name).selectOption({ label });
    await this.settle();
  }
  async text(form, name) {
    const control = this.control(form, name);
    const tag = await control.evaluate((element) => element.tagName);
    return tag === 'SPAN' ? control.innerText() : control.inputValue();
  }
}
