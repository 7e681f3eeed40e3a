// The page of the game.
import {element, Front, sayByBrowser} from './front.js';
import {cityFiles, Editor, exportAll, exportOne, importFile, undoImport} from './files.js';
import {sound} from './engine.js';
import {keep, readAll} from './store.js';

const running = 'Tamlo Delivery is running already. Please play on there.';
const lockName = 'tamlo game';
const readerKey = 'tamlo lines to the screen reader';

const editor = new Editor(element('editor'));

/// The claim on the files, for as long as the promise is open; null if another tab has it.
function claim() {
  return new Promise((claimed) => {
    if (!navigator.locks) return claimed(() => {});
    navigator.locks.request(lockName, {ifAvailable: true}, (lock) => {
      if (!lock) return claimed(null);
      return new Promise((release) => claimed(release));
    });
  });
}

async function prepare() {
  const done = await claim();
  if (!done) return {why: running};
  askToKeep();
  try {
    return {files: await readAll(), done};
  } catch (error) {
    front.tell(`This browser does not let the game keep files: ${error?.message ?? error}. You can play, but nothing is kept.`);
    return {files: [], done};
  }
}

function message(text, spoken) {
  const dialog = element('message');
  element('message-text').textContent = text;
  if (!spoken) sayByBrowser(text);
  dialog.showModal();
  return new Promise((done) => {
    dialog.querySelector('button').onclick = () => dialog.close();
    dialog.onclose = () => {
      element('game').focus();
      done();
    };
  });
}

const front = new Front({
  what: 'play',
  prepare,
  page: {
    message,
    keep,
    edit: (name, bytes) => editor.open(name, bytes,
      (saved, content) => front.run?.send(true, saved, content), () => element('game').focus()),
  },
});
front.ended = showCities;

/// Browsers clear what pages keep when they need room, unless they were asked not to.
async function askToKeep() {
  const kept = await navigator.storage?.persisted?.() || await navigator.storage?.persist?.();
  element('keeping').textContent = kept
    ? 'Your games, settings and cities are kept by this browser until you clear its data.'
    : 'Your games, settings and cities are kept by this browser, but it does not promise to keep them for good. '
      + 'Export them now and then.';
}

async function showCities() {
  const names = await cityFiles().catch(() => []);
  element('cities').hidden = !names.length;
  element('city').replaceChildren(...names.map((name) => new Option(name)));
}

/// Does something with the files while no game has them.
async function withFiles(work) {
  const done = await claim();
  if (!done) return front.tell('A game is running. Its files can be changed when it has ended.');
  try {
    front.tell(await work());
  } catch (error) {
    front.tell(`Nothing has been changed. ${error?.message ?? error}`);
  } finally {
    done();
    showCities();
  }
}

element('export').onclick = async () => {
  try {
    const count = await exportAll();
    front.tell(count ? `${count} files have been saved as tamlo-files.zip.` : 'There are no files yet.');
  } catch (error) {
    front.tell(`The files could not be exported: ${error?.message ?? error}`);
  }
};
element('undo').onclick = () => withFiles(undoImport);
element('import').onchange = ({target}) => {
  const [file] = target.files;
  if (file) withFiles(() => importFile(file)).then(() => { target.value = ''; });
};
element('export-city').onclick = () => exportOne(element('city').value);
element('edit-city').onclick = () => withFiles(async () => {
  const name = element('city').value;
  const file = (await readAll()).find((one) => one.name === name);
  if (!file) throw new Error('The file is gone.');
  return new Promise((done) => {
    let said = 'The file is as it was.';
    editor.open(name, file.bytes, () => { said = 'The file has been saved.'; }, () => done(said));
  });
});

const reader = element('to-reader');
reader.checked = localStorage.getItem(readerKey) === 'yes';
reader.onchange = () => {
  localStorage.setItem(readerKey, reader.checked ? 'yes' : 'no');
  element('spoken').hidden = !reader.checked;
};
element('spoken').hidden = !reader.checked;

navigator.storage?.persisted?.().then((kept) => kept && askToKeep());
showCities();

// For the speech and sound check, and for tests.
globalThis.tamlo = {front, sound};
