// The player's files on the page: as one zip out and in, a city file alone, and its editor.
import {keep, readAll, readReplaced, replaceAll} from './store.js';
import {readZip, writeZip} from './zip.js';

const folder = 'tolvane/';
const cityFile = /^tamlostreets(.*)\.txt$/i;
const mostBytes = 64 << 20;

export const isCityFile = (name) => cityFile.test(name);

function save(name, bytes, type) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([bytes], {type}));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

/// How many files were handed to the browser as one zip.
export async function exportAll() {
  const files = await readAll();
  const packed = writeZip(files.map(({name, bytes}) => ({name: folder + name, bytes})));
  if (files.length) save('tamlo-files.zip', packed, 'application/zip');
  return files.length;
}

export async function exportOne(name) {
  const file = (await readAll()).find((one) => one.name === name);
  if (file) save(name, file.bytes, 'text/plain');
}

export async function cityFiles() {
  return (await readAll()).map(({name}) => name).filter(isCityFile);
}

/// The player's files of a zip: those in its folder tolvane, else those in none.
function playersFiles(entries) {
  const inFolder = entries.filter(({name}) => /(^|\/)tolvane\/[^/]+$/i.test(name));
  const chosen = (inFolder.length ? inFolder : entries.filter(({name}) => !name.includes('/')))
    .map(({name, bytes}) => ({name: name.slice(name.lastIndexOf('/') + 1), bytes}))
    .filter(({name}) => !name.startsWith('.'));
  const names = new Set(chosen.map(({name}) => name.toLowerCase()));
  if (names.size !== chosen.length) throw new Error('There are several folders of the game in it.');
  if (!chosen.some(({name}) => /^tamlo/i.test(name))) throw new Error('There are no files of the game in it.');
  return chosen;
}

/// Takes over a zip with all files, or one city file. What there was before an import of all can be
/// had back. Says what it did, or throws an Error that says why it did nothing.
export async function importFile(file) {
  if (file.size > mostBytes) throw new Error('The file is too long.');
  const bytes = new Uint8Array(await file.arrayBuffer());
  if (isCityFile(file.name)) {
    await keep([{name: file.name, bytes}]);
    return `The city file ${file.name} is here now.`;
  }
  const files = playersFiles(await readZip(bytes));
  await replaceAll(files);
  return `${files.length} files have taken the place of those that were here.`;
}

export async function undoImport() {
  const files = await readReplaced();
  if (!files.length) throw new Error('There is nothing to bring back.');
  await replaceAll(files);
  return `The ${files.length} files from before the last import are back.`;
}

/// A text as the editor shows it, and how it goes back into bytes.
export function decodeText(bytes) {
  const endings = (text) => ({text: text.replaceAll('\r\n', '\n'), returns: text.includes('\r\n')});
  try {
    return {...endings(new TextDecoder('utf-8', {fatal: true}).decode(bytes)), encoding: 'utf-8'};
  } catch {
    return {...endings(new TextDecoder('windows-1252').decode(bytes)), encoding: 'windows-1252'};
  }
}

const windows1252 = new Map(Array.from({length: 256}, (unused, byte) =>
  [new TextDecoder('windows-1252').decode(Uint8Array.of(byte)), byte]));

export function encodeText(text, {returns, encoding}) {
  const lines = returns ? text.replace(/\r?\n/g, '\r\n') : text;
  const letters = [...lines];
  if (encoding === 'windows-1252' && letters.every((letter) => windows1252.has(letter))) {
    return Uint8Array.from(letters, (letter) => windows1252.get(letter));
  }
  return new TextEncoder().encode(lines);
}

/// The editor of the page, a dialog with a labelled text area.
export class Editor {
  constructor(dialog) {
    this.dialog = dialog;
    [this.title, this.area, this.state] = ['h2', 'textarea', 'output'].map((kind) => dialog.querySelector(kind));
    dialog.querySelector('[data-do=save]').onclick = () => this.save();
    dialog.querySelector('[data-do=leave]').onclick = () => dialog.close();
    dialog.addEventListener('cancel', (event) => {
      if (this.area.value === this.shown) return;
      event.preventDefault();
      this.state.textContent = 'There are changes that are not saved. Save the file, or leave without saving.';
      dialog.querySelector('[data-do=leave]').focus();
    });
    dialog.addEventListener('close', () => this.left?.());
  }

  /// `saved` is called with the name and bytes of what has been saved, `left` when it closes.
  open(name, bytes, saved, left) {
    Object.assign(this, {name, saved, left, form: decodeText(bytes)});
    this.title.textContent = `City file ${name}`;
    this.area.value = this.shown = this.form.text;
    this.state.textContent = '';
    this.dialog.showModal();
    this.area.focus();
    this.area.setSelectionRange(0, 0);
  }

  async save() {
    const bytes = encodeText(this.area.value, this.form);
    try {
      await keep([{name: this.name, bytes}]);
      this.shown = this.area.value;
      this.saved(this.name, bytes);
      this.dialog.close();
    } catch (error) {
      this.state.textContent = `The file could not be saved: ${error?.message ?? error}`;
    }
  }
}
