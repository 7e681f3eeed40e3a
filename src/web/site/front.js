// What the pages that run the program have in common: the button, the keys, the lines to read.
import {isolated} from './isolate.js';
import {isOthers, modifiersOf, virtualKeyCode} from './keys.js';
import {Run, sound, sounds} from './engine.js';

const mostLines = 8;
const mostSpoken = 30;
const patience = 1500;  // ms until a player is told that it takes longer
const brokenDown = 'I’m sorry, but Tamlo Delivery has broken down. What you have saved is kept. '
  + 'Please start the game again.';

export const element = (id) => document.getElementById(id);

/// Said by the browser's own voice, where ours can't.
export function sayByBrowser(text) {
  globalThis.speechSynthesis?.speak(new SpeechSynthesisUtterance(text));
}

export class Front {
  /// `what`: see Run.begin. `page`: its further calls. `prepare` returns the player's files and a
  /// function to be called at the end, or the reason why nothing begins.
  constructor({what, page = {}, prepare = async () => ({files: []})}) {
    Object.assign(this, {what, page, prepare});
    this.game = element('game');
    this.button = element('begin');
    this.label = this.button.textContent;
    this.lines = element('captions');
    this.spoken = element('spoken');
    this.status = element('status');
    this.listenToKeys();
    this.button.onclick = () => this.begin();
    this.button.disabled = true;
    this.begun = this.open();
  }

  async open() {
    const why = await isolated();
    if (why) return this.tell(why);
    this.next = new Run();
    sounds().catch(() => {});
    this.button.disabled = false;
    this.button.focus();
    this.next.loaded.catch((error) => this.tell(`The game could not be loaded: ${error.message}`));
  }

  tell(text) {
    this.status.textContent = text;
  }

  /// The player's press: sound may begin only in it.
  async begin() {
    if (this.run) return;
    sound.open();
    this.run = this.next ?? new Run();
    this.next = undefined;
    this.begin.at = performance.timeOrigin + performance.now();
    this.tell('');
    const waiting = setTimeout(() => this.tell('The game is being loaded. Please wait.'), patience);
    this.run.loaded.finally(() => clearTimeout(waiting)).catch(() => {});
    const {why, files = [], done = () => {}} = await this.prepare();
    if (why) return this.refuse(why);
    this.button.hidden = true;
    this.game.tabIndex = 0;
    this.game.focus();
    const end = await this.play(files);
    done();
    if (end.restart) {
      this.run = undefined;
      return this.begin();
    }
    this.end(end);
  }

  async play(files) {
    try {
      return await this.run.begin(this.what, {
        files,
        page: {title: (text) => { document.title = text.trim(); }, line: (text) => this.showLine(text), ...this.page},
      });
    } catch (error) {
      return {brokenDown: error?.message ?? String(error)};
    }
  }

  /// Nothing begins: the reason is shown, and said by the voice that was to play.
  async refuse(why) {
    this.tell(why);
    await this.say(this.run, why);
    this.wait();
  }

  async say(run, text) {
    const page = {line: (line) => this.showLine(line)};
    const end = await run.begin('say', {text, page}).catch((error) => ({brokenDown: error.message}));
    if (end.brokenDown || end.status !== 0) sayByBrowser(text);
  }

  async end({reason, brokenDown: cause}) {
    document.title = 'Tamlo Delivery';
    if (cause) {
      console.log(`broken down: ${cause}`);
      this.tell(`${brokenDown} (${cause})`);
      await this.say(new Run(), brokenDown);
    } else {
      this.tell(reason || 'The game has ended.');
    }
    this.wait();
  }

  /// Until the button is pressed again.
  wait() {
    this.run = undefined;
    this.next = new Run();
    this.game.tabIndex = -1;
    this.button.hidden = false;
    this.button.textContent = this.label;
    this.button.focus();
    this.ended?.();
  }

  /// Lines in brackets are captions of sounds.
  showLine(text) {
    const line = document.createElement('div');
    line.textContent = text;
    if (text.startsWith('[')) line.className = 'sound';
    this.lines.append(line);
    while (this.lines.childElementCount > mostLines) this.lines.firstElementChild.remove();
    if (!this.spoken || this.spoken.hidden) return;
    const copy = document.createElement('p');
    copy.textContent = text;
    this.spoken.append(copy);
    while (this.spoken.childElementCount > mostSpoken) this.spoken.firstElementChild.remove();
  }

  /// Keys are the game's while it has the focus, or nothing has.
  listenToKeys() {
    const meant = (event) => this.run?.begun && !document.querySelector('dialog[open]')
      && [this.game, document.body].includes(document.activeElement)
      && !isOthers(event) && !(event.key === 'Tab' && event.shiftKey);
    addEventListener('keydown', (event) => {
      if (!meant(event)) return;
      event.preventDefault();
      sound.wake();
      if (document.activeElement !== this.game) this.game.focus();
      const code = virtualKeyCode(event);
      if (code) this.run.press(code, modifiersOf(event));
    }, {capture: true});
    for (const kind of ['keyup', 'contextmenu']) {
      addEventListener(kind, (event) => {
        if (kind === 'contextmenu' ? this.run?.begun && document.activeElement === this.game : meant(event)) {
          event.preventDefault();
        }
      });
    }
  }
}
