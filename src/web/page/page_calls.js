// The bodies of page_calls.h: each hands its arguments to the page's own object, Module.page, in a
// form that knows nothing of the game's memory. Linked in by emscripten.
mergeInto(LibraryManager.library, {
  $tamloText: function (pointer) {
    const text = UTF8ToString(pointer);
    _free(pointer);
    return text;
  },
  $tamloText__deps: ['free'],
  // A plain copy: what is shared between threads can be kept nowhere.
  $tamloBytes: function (pointer, size) {
    return new Uint8Array(HEAPU8.subarray(pointer, pointer + size));
  },
  $tamloAnswer: function (pointer, promise) {
    const answer = (value) => {
      Atomics.store(HEAP32, pointer >> 2, value);
      Atomics.notify(HEAP32, pointer >> 2);
    };
    promise.then(() => answer(1), () => answer(2));
  },

  tamlo_page_ring__sig: 'vi',
  tamlo_page_ring__proxy: 'async',
  tamlo_page_ring: function (ring) {
    Module['page'].ring(HEAP32.buffer, ring);
  },
  tamlo_page_title__sig: 'vi',
  tamlo_page_title__proxy: 'async',
  tamlo_page_title__deps: ['$tamloText'],
  tamlo_page_title: function (text) {
    Module['page'].title(tamloText(text));
  },
  tamlo_page_line__sig: 'vi',
  tamlo_page_line__proxy: 'async',
  tamlo_page_line__deps: ['$tamloText'],
  tamlo_page_line: function (text) {
    Module['page'].line(tamloText(text));
  },
  tamlo_page_message__sig: 'viii',
  tamlo_page_message__proxy: 'async',
  tamlo_page_message__deps: ['$tamloText', '$tamloAnswer'],
  tamlo_page_message: function (text, spoken, answer) {
    tamloAnswer(answer, Module['page'].message(tamloText(text), spoken !== 0));
  },
  tamlo_page_edit__sig: 'viii',
  tamlo_page_edit__proxy: 'async',
  tamlo_page_edit__deps: ['$tamloText', '$tamloBytes', 'free'],
  tamlo_page_edit: function (name, bytes, size) {
    const content = tamloBytes(bytes, size);
    _free(bytes);
    Module['page'].edit(tamloText(name), content);
  },
  tamlo_page_keep__sig: 'viii',
  tamlo_page_keep__proxy: 'async',
  tamlo_page_keep__deps: ['$tamloBytes', '$tamloAnswer'],
  tamlo_page_keep: function (files, count, answer) {
    const changes = [];
    for (let i = 0; i < count; ++i) {
      const [name, bytes, size] = HEAPU32.subarray((files >> 2) + 3 * i, (files >> 2) + 3 * i + 3);
      changes.push({name: UTF8ToString(name), bytes: bytes ? tamloBytes(bytes, size) : null});
    }
    tamloAnswer(answer, Module['page'].keep(changes));
  },
  tamlo_page_ended__sig: 'viii',
  tamlo_page_ended__proxy: 'async',
  tamlo_page_ended__deps: ['$tamloText'],
  tamlo_page_ended: function (status, reason, restart) {
    Module['page'].ended(status, tamloText(reason), restart !== 0);
  },
});
