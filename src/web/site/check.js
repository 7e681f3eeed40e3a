// The speech and sound check: what the browser gives the game, told by the game's voice and as a list.
import {element, Front} from './front.js';
import {Run, sound, sounds} from './engine.js';
import {virtualKeyCode} from './keys.js';
import {keep, readAll} from './store.js';

const trial = 'tamlo-check.tmp';
const keyNames = {13: 'Enter', 27: 'Escape', 38: 'Up Arrow', 112: 'F 1', 117: 'F 6'};
const patienceWithKeys = 30000;
const measuring = 1000;     // ms
const lowestRate = 36000;  // frames a second of 48,000, on a busy machine

const results = [];

function add(topic, fine, text) {
  results.push({topic, fine, text});
  const item = document.createElement('li');
  item.textContent = `${fine ? 'Fine' : 'Trouble'}: ${text}`;
  element('results').append(item);
}

async function checkStorage() {
  try {
    const bytes = Uint8Array.of(1, 2, 3);
    await keep([{name: trial, bytes}]);
    const found = (await readAll()).find(({name}) => name === trial)?.bytes;
    await keep([{name: trial, bytes: null}]);
    const same = found?.length === bytes.length && found.every((byte, i) => byte === bytes[i]);
    add('files', same, same ? 'Files are kept.' : 'What is kept comes back changed.');
  } catch (error) {
    add('files', false, `Files can’t be kept: ${error?.message ?? error}. You can play, but nothing is saved.`);
  }
  const kept = await navigator.storage?.persisted?.();
  add('lasting', true, kept ? 'The browser keeps them until you clear its data.'
    : 'The browser may clear them when it needs room. Export them now and then.');
}

async function checkLoading() {
  try {
    const size = (await sounds()).size;
    add('sounds', true, `The sounds are here, ${(size / 1e6).toFixed(1)} megabytes.`);
  } catch (error) {
    add('sounds', false, `The sounds can’t be loaded: ${error.message}`);
  }
}

const pause = (milliseconds) => new Promise((done) => setTimeout(done, milliseconds));

/// Frames that the browser takes in a second.
async function soundRate() {
  for (let left = 50; left > 0 && !sound.figures().asked; --left) await pause(100);
  const [before, begin] = [sound.figures().asked, performance.now()];
  await pause(measuring);
  return (sound.figures().asked - before) / (performance.now() - begin) * 1000;
}

/// The voice says something; how far the worklet comes meanwhile tells whether it can be heard.
async function checkVoice(front, run) {
  const speaking = run.begin('say', {text: 'Speech and sound check of Tamlo Delivery. You hear the voice of the game.',
    page: {line: (text) => front.showLine(text)}});
  const [end, rate] = await Promise.all([speaking, soundRate()]);
  add('voice', !end.brokenDown && end.status === 0,
    end.brokenDown ? `The voice has broken down: ${end.brokenDown}`
      : end.status === 0 ? 'The voice has spoken.' : 'The voice could not speak.');
  const {state, burst, missing, outputLatency, baseLatency} = sound.figures();
  if (state !== 'running' || rate < lowestRate) {
    add('sound', false, `The browser does not take the sound: ${state}, ${Math.round(rate)} frames a second. `
      + 'Look whether this page is muted.');
    return;
  }
  add('sound', true, `Sound goes out in pieces of ${burst} frames, `
    + `${Math.round(1000 * (outputLatency || baseLatency))} milliseconds before it is heard`
    + `${missing ? `, with ${missing} frames missing` : ''}.`);
}

function askForKey(front, code) {
  return new Promise((done) => {
    const give = (found) => {
      removeEventListener('keydown', listen, true);
      clearTimeout(timer);
      done(found);
    };
    const listen = (event) => {
      event.preventDefault();
      give(virtualKeyCode(event));
    };
    const timer = setTimeout(() => give(0), patienceWithKeys);
    addEventListener('keydown', listen, true);
    front.tell(`Press ${keyNames[code]}.`);
  });
}

async function say(front, text) {
  front.tell(text);
  await front.say(new Run(), text);
}

async function checkKeys(front) {
  for (const code of [112, 117, 38, 27]) {
    const asked = say(front, `Press ${keyNames[code]}.`);
    const found = await askForKey(front, code);
    await asked;
    if (found === code) continue;
    return add('keys', false, found ? `Instead of ${keyNames[code]} another key came, with the number ${found}.`
      : `${keyNames[code]} did not come. The browser, the screen reader or the system may keep it.`);
  }
  add('keys', true, 'The keys come as they are pressed.');
}

class Check extends Front {
  async play() {
    results.length = 0;
    element('results').replaceChildren();
    add('isolation', globalThis.crossOriginIsolated, globalThis.crossOriginIsolated
      ? 'The browser lets the game run.' : 'The browser does not let the game run.');
    await checkStorage();
    await checkLoading();
    await checkVoice(this, this.run);
    await checkKeys(this);
    const troubles = results.filter(({fine}) => !fine);
    const verdict = troubles.length ? `There is trouble: ${troubles.map(({text}) => text).join(' ')}`
      : 'All is well: the game can be played here.';
    await say(this, verdict);
    element('copy').hidden = false;
    return {status: 0, reason: verdict};
  }
}

element('copy').onclick = () => navigator.clipboard.writeText(
  [navigator.userAgent, ...results.map(({topic, fine, text}) => `${fine ? 'fine' : 'TROUBLE'} ${topic}: ${text}`)].join('\n'));

globalThis.tamlo = {front: new Check({what: 'say'}), results};
