// Which virtual-key code a key has: the numbers that the game is told. Letters and signs follow the
// layout, digits and the keypad their place; where a layout puts neither a Latin letter nor a sign
// that has a code, the place on the American layout decides.

const row = (keys, codes) => Object.fromEntries(keys.map((key, i) => [key, codes[i]]));

const places = {
  ...row([1, 2, 3, 4, 5, 6, 7, 8, 9, 0].map((n) => `Digit${n}`), [49, 50, 51, 52, 53, 54, 55, 56, 57, 48]),
  NumpadMultiply: 106, NumpadAdd: 107, NumpadSubtract: 109, NumpadDivide: 111, NumpadEnter: 13,
  IntlBackslash: 226,
};

// With and without NumLock.
const keypad = {
  Numpad0: [96, 45], Numpad1: [97, 35], Numpad2: [98, 40], Numpad3: [99, 34], Numpad4: [100, 37],
  Numpad5: [101, 12], Numpad6: [102, 39], Numpad7: [103, 36], Numpad8: [104, 38],
  Numpad9: [105, 33], NumpadDecimal: [110, 46],
};

const signs = {
  ' ': 32, ';': 186, '=': 187, ',': 188, '-': 189, '.': 190, '/': 191, '`': 192, '[': 219,
  '\\': 220, ']': 221, '\'': 222,
};

const named = {
  Backspace: 8, Tab: 9, Enter: 13, Shift: 16, Pause: 19, CapsLock: 20, Escape: 27, PageUp: 33,
  PageDown: 34, End: 35, Home: 36, ArrowLeft: 37, ArrowUp: 38, ArrowRight: 39, ArrowDown: 40,
  PrintScreen: 44, Insert: 45, Delete: 46, ContextMenu: 93, NumLock: 144, ScrollLock: 145,
};

const americanSigns = {
  Semicolon: ';', Equal: '=', Comma: ',', Minus: '-', Period: '.', Slash: '/', Backquote: '`',
  BracketLeft: '[', Backslash: '\\', BracketRight: ']', Quote: '\'', Space: ' ',
};

function codeOfMeaning(key) {
  if (/^[a-z]$/i.test(key)) return key.toUpperCase().charCodeAt(0);
  const f = /^F([1-9]|1[0-9]|2[0-4])$/.exec(key);
  return f ? 111 + Number(f[1]) : named[key] ?? signs[key] ?? 0;
}

function codeOfPlace(place) {
  const letter = /^Key([A-Z])$/.exec(place);
  return letter ? letter[1].charCodeAt(0) : signs[americanSigns[place]] ?? 0;
}

// What a key gives without Shift, as far as it has been seen.
const unshifted = new Map();

/// The code for a KeyboardEvent; 0 for a key that the game is not told of.
export function virtualKeyCode(event) {
  const {code: place, key, shiftKey} = event;
  if (place in keypad) {
    const digits = event.getModifierState('NumLock') && !shiftKey;
    return keypad[place][digits ? 0 : 1];
  }
  if (place in places) return places[place];
  if (!shiftKey && key.length === 1) unshifted.set(place, key);
  const meant = shiftKey && key.length === 1 && !/[a-z]/i.test(key) ? unshifted.get(place) : key;
  return (meant && codeOfMeaning(meant)) || codeOfPlace(place);
}

/// Whether the press is one of the browser's or the screen reader's: they have the combinations
/// with Control, Alt and Meta, and these keys.
export function isOthers(event) {
  if (['Control', 'Alt', 'Meta', 'OS', 'AltGraph'].includes(event.key)) return true;
  if (event.getModifierState('AltGraph')) return false;
  return event.ctrlKey || event.altKey || event.metaKey;
}

/// 1 for Shift, 2 for Control, 4 for Alt, added up.
export function modifiersOf(event) {
  return (event.shiftKey ? 1 : 0) + (event.ctrlKey ? 2 : 0) + (event.altKey ? 4 : 0);
}
