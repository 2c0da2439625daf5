// SPDX-License-Identifier: GPL-2.0-or-later
// A student's own files, kept by the browser under the address of the page.

/** @typedef {{key: string, path: string, bytes: Uint8Array}} Kept */

const table = 'files';

/**
 * @template T
 * @param {IDBRequest<T>} request
 * @returns {Promise<T>}
 */
const done = (request) =>
  new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error ?? new Error('the store failed'));
  });

export class Store {
  /** @param {string} module its document's path */
  constructor(module) {
    this.prefix = `${location.pathname}|${module}|`;
    /** @type {Promise<IDBDatabase>|null} */
    this.opened = null;
  }

  async database() {
    this.opened ??= (() => {
      const request = indexedDB.open('brelmon', 1);
      request.onupgradeneeded = () => request.result.createObjectStore(table, { keyPath: 'key' });
      return done(request);
    })();
    return this.opened;
  }

  /** @returns {Promise<Kept[]>} */
  async all() {
    const all = (await this.database()).transaction(table).objectStore(table).getAll();
    return (await done(all)).filter((/** @type {Kept} */ one) => one.key.startsWith(this.prefix));
  }

  /**
   * @param {string} path
   * @param {Uint8Array} bytes
   */
  async keep(path, bytes) {
    const store = (await this.database()).transaction(table, 'readwrite').objectStore(table);
    await done(store.put({ key: this.prefix + path, path, bytes }));
  }

  async clear() {
    const kept = await this.all();
    const store = (await this.database()).transaction(table, 'readwrite').objectStore(table);
    await Promise.all(kept.map((one) => done(store.delete(one.key))));
  }
}

/**
 * Offers a file for saving.
 * @param {string} path
 * @param {Uint8Array} bytes
 */
export function save(path, bytes) {
  const link = document.createElement('a');
  const address = URL.createObjectURL(new Blob([/** @type {BlobPart} */ (bytes)]));
  link.href = address;
  link.download = path.slice(path.lastIndexOf('/') + 1);
  link.click();
  setTimeout(() => URL.revokeObjectURL(address), 10000);
}
