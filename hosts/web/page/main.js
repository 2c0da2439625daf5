// SPDX-License-Identifier: GPL-2.0-or-later
// The page: the module is loaded, its parts are put together, messages find their listeners.
import { Contents } from './contents.js';
import { ErrorDialog, printText, showBox } from './dialogs.js';
import { el } from './dom.js';
import { readFile } from './files.js';
import { FormWindow } from './formwindow.js';
import { localeOf } from './locale.js';
import { MapView } from './map.js';
import { openAddress, openFile, openMedia } from './media.js';
import { Program } from './program.js';
import { StatusBar } from './statusbar.js';
import { Store } from './store.js';
import { TableWindow } from './tablewindow.js';
import { Toolbar } from './toolbar.js';
import { Work } from './work.js';

const program = new Program();
const status = new StatusBar();
/** @type {Map<number, FormWindow>} */
const forms = new Map();
/** @type {Map<number, TableWindow>} */
const tables = new Map();
const errors = new ErrorDialog(() => poll());

/** Asks which commands are enabled, unless something waits for its user. */
function poll() {
  if (!program.busy && !errors.isOpen) program.do(0, 'enabled');
}

/** @param {string} text */
function copy(text) {
  navigator.clipboard?.writeText(text).catch(() => status.complain("The text can't be copied."));
}

function hearForms() {
  program.on('form', ({ name, modal }) => forms.set(name, new FormWindow(program, name, modal)));
  program.on('form-changed', ({ name }) => forms.get(name)?.update());
  program.on('form-raise', ({ name }) => forms.get(name)?.window.raise());
  program.on('form-gone', ({ name }) => {
    forms.get(name)?.gone();
    forms.delete(name);
    // The form below has the focus again.
    forms.get(program.top)?.showFocus();
  });
  program.on('box', (told) => showBox(program, told));
  program.on('trail', (told) => errors.show(told));
}

/** @param {Work} work */
function hearServices(work) {
  let interrupted = false;
  document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape' && program.busy) interrupted = true;
  });
  program.on('breath', ({ name }) => {
    setTimeout(() => {
      program.endWait(name, interrupted ? 1 : 0);
      interrupted = false;
    });
  });
  program.on('progress', (told) => {
    interrupted = interrupted && told.visible;
    status.progress(told);
  });
  program.on('pointer', ({ busy }) => document.body.classList.toggle('busy', busy));
  program.on('fault', ({ text }) => status.complain(text));
  program.on('copy', ({ text }) => copy(text));
  program.on('print', (told) => printText(told));
  program.on('file', ({ path }) => work.written(path));
  program.on('open-address', ({ address }) => openAddress(address));
  program.on('open-media', ({ path }) => void openMedia(path));
  program.on('open-file', ({ path }) => openFile(path, program.fileBytes(path)));
  program.on('table', ({ name, title, shown }) => {
    if (!tables.has(name)) tables.set(name, new TableWindow(program, { name, title }));
    tables.get(name)?.show(shown);
  });
  program.on('table-gone', ({ name }) => {
    tables.get(name)?.gone();
    tables.delete(name);
  });
}

/**
 * Everything that shows the document follows its changes.
 * @param {Contents} contents
 * @param {MapView} map
 * @param {Toolbar} toolbar
 */
function follow(contents, map, toolbar) {
  let due = false;
  let asked = false;
  const refresh = () => {
    due = false;
    const now = program.ask('contents');
    contents.show(now);
    map.show(now.frames);
    tables.forEach((table) => table.update());
  };
  program.on('changed', () => {
    if (!due) requestAnimationFrame(refresh);
    due = true;
  });
  program.on('moved', () => map.moved());
  program.on('enabled', ({ classes }) => toolbar.enable(classes));
  program.addEventListener('settled', () => {
    document.body.dataset.state = program.busy ? 'busy' : 'ready';
    if (asked || program.busy) return;
    asked = true;
    setTimeout(() => {
      poll();
      setTimeout(() => (asked = false));
    });
  });
  refresh();
  poll();
}

/**
 * @param {any} module
 * @param {(text: string) => void} say
 */
async function load(module, say) {
  const files = new Set(
    Object.values(module.sources)
      .map((source) => source.file)
      .filter(Boolean),
  );
  let left = files.size;
  await Promise.all([
    ...[...files].map(async (file) => {
      program.put('table', file, await readFile(file));
      say(`Loading ${module.title}: ${--left} tables to go`);
    }),
    ...module.texts.map(async (/** @type {string} */ path) =>
      program.put('file', path, await readFile(`module/${path}`)),
    ),
  ]);
}

async function start() {
  const asked = new URLSearchParams(location.search);
  document.body.append(status.element);
  status.say('Loading ...');
  const text = new TextDecoder().decode(await readFile('module.json'));
  await program.load(/** @type {any} */ (globalThis).BrelmonProgram, {
    wasmBinary: await readFile('brelmon.wasm'),
  });
  const reason = program.begin(text);
  if (reason) throw new Error(reason);
  const module = JSON.parse(text);
  document.title = module.title;
  await load(module, (words) => status.say(words));
  const work = new Work(program, new Store(module.document));
  hearForms();
  hearServices(work);
  const fault = program.open({
    now: asked.get('now') ?? '',
    ...localeOf(asked.get('lang') ?? navigator.language),
  });
  if (fault) throw new Error(fault);
  const toolbar = new Toolbar(program, (words) => status.say(words));
  const contents = new Contents(program);
  const map = new MapView(program, module, (words) => (status.place.textContent = words));
  document
    .getElementById('desk')
    ?.append(
      el(
        'header',
        { className: 'top' },
        el('h1', {}, module.title),
        toolbar.element,
        map.graphics.bar,
        work.element,
        toolbar.menu,
      ),
      el('main', { className: 'middle' }, contents.element, map.element),
    );
  await work.offer();
  status.say('');
  follow(contents, map, toolbar);
  /** @type {any} */ (globalThis).brelmon = program;
}

start().catch((reason) => {
  status.complain(`This module can't be opened: ${reason.message ?? reason}`);
  document.body.dataset.state = 'failed';
});
