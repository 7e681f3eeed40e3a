// The player's files: each a row of one table, its name the key, its bytes the value.

const table = 'files';
const before = 'before the last import';

let opening;

function open() {
  opening ??= new Promise((done, failed) => {
    const request = indexedDB.open('tamlo', 1);
    request.onupgradeneeded = () => {
      request.result.createObjectStore(table);
      request.result.createObjectStore(before);
    };
    request.onsuccess = () => done(request.result);
    request.onerror = () => failed(request.error);
  });
  opening.catch(() => { opening = undefined; });
  return opening;
}

/// Has `work` done on the tables in one transaction, all of it or none; returns once it is safe.
async function inOneTransaction(work, mode = 'readwrite') {
  const database = await open();
  return new Promise((done, failed) => {
    const transaction = database.transaction([table, before], mode, {durability: 'strict'});
    const result = work(transaction.objectStore(table), transaction.objectStore(before));
    transaction.oncomplete = () => done(result);
    transaction.onabort = () => failed(transaction.error);
  });
}

function readInto(files, store) {
  store.openCursor().onsuccess = ({target: {result: cursor}}) => {
    if (!cursor) return;
    files.push({name: cursor.key, bytes: cursor.value});
    cursor.continue();
  };
  return files;
}

/// All files, as {name, bytes}.
export const readAll = () => inOneTransaction((files) => readInto([], files), 'readonly');

/// Makes changes last: {name, bytes}, null instead of bytes for a file that goes.
export const keep = (changes) => inOneTransaction((files) => {
  for (const {name, bytes} of changes) {
    if (bytes) files.put(bytes, name);
    else files.delete(name);
  }
});

/// Puts other files in the place of all that there are; these can be had back.
export const replaceAll = (fresh) => inOneTransaction((files, old) => {
  old.clear();
  files.openCursor().onsuccess = ({target: {result: cursor}}) => {
    if (cursor) {
      old.put(cursor.value, cursor.key);
      cursor.continue();
      return;
    }
    files.clear();
    for (const {name, bytes} of fresh) files.put(bytes, name);
  };
});

/// The files as they were before the last import.
export const readReplaced = () => inOneTransaction((files, old) => readInto([], old), 'readonly');
