// The program of the game in the page: loaded, joined to the sound and to the page, begun, ended.

const sampleRate = 48000;
const patienceWithSound = 700;  // ms until a worklet that asks for nothing is made again
const mostSounds = 4;

let makeProgram;

/// The program's code and what it reads, each fetched once for the page.
const fetched = new Map();

async function fetchPacked(name) {
  const answer = await fetch(name);
  if (!answer.ok) throw new Error(`${name} can’t be loaded: ${answer.status}`);
  return answer;
}

const unpacked = (stream) => stream.pipeThrough(new DecompressionStream('gzip'));

function once(name, load) {
  if (!fetched.has(name)) {
    fetched.set(name, load());
    fetched.get(name).catch(() => fetched.delete(name));
  }
  return fetched.get(name);
}

const script = () => once('tamlo.js', () => new Promise((done, failed) => {
  const element = document.createElement('script');
  element.src = 'tamlo.js';
  element.onload = () => {
    makeProgram = globalThis.makeTamlo;
    done();
  };
  element.onerror = () => failed(new Error('The program can’t be loaded.'));
  document.head.append(element);
}));

const code = () => once('tamlo.wasm.gz', async () => WebAssembly.compileStreaming(
  new Response(unpacked((await fetchPacked('tamlo.wasm.gz')).body),
    {headers: {'Content-Type': 'application/wasm'}})));

const start = () => once('start.pack.gz', async () => readPack(
  new Uint8Array(await new Response(unpacked((await fetchPacked('start.pack.gz')).body)).arrayBuffer())));

/// Fetched ahead, so that they are at hand when the game begins.
export const sounds = () => once('sounds.pack.gz', async () => (await fetchPacked('sounds.pack.gz')).blob());

/// The files of a pack: see files/pack.h.
export function readPack(bytes) {
  const view = new DataView(bytes.buffer, bytes.byteOffset);
  const files = [];
  let at = 4;
  for (let left = view.getUint32(0, true); left > 0; --left) {
    const end = bytes.indexOf(0, at);
    files.push({name: new TextDecoder().decode(bytes.subarray(at, end)), size: view.getUint32(end + 1, true)});
    at = end + 5;
  }
  for (const file of files) {
    file.bytes = bytes.subarray(at, at + file.size);
    at += file.size;
  }
  return files;
}

/// What one run of the program asks of the page: see page/page_calls.h.
const silentPage = {
  ring() {}, title() {}, line() {}, edit() {}, ended() {},
  message: async () => {}, keep: async () => {},
};

/// The worklet's script as an address that needs no network when the player presses the button.
const worklet = () => once('ring-worklet.js', async () =>
  URL.createObjectURL(await (await fetchPacked('ring-worklet.js')).blob()));

/// The sound of the page, kept from run to run.
class Sound {
  constructor() {
    this.tries = 0;
  }

  /// Only in answer to a press of the player's.
  open() {
    if (this.context) return this.wake();
    const context = new AudioContext({latencyHint: 'interactive', sampleRate});
    this.context = context;
    context.onstatechange = () => this.wake();
    this.join(context).catch((error) => console.log(`no sound: ${error.message}`));
    setTimeout(() => this.watch(context), patienceWithSound / 4);
  }

  async join(context) {
    await context.audioWorklet.addModule(await worklet());
    if (context !== this.context) return;
    this.node = new AudioWorkletNode(context, 'ring-reader', {numberOfInputs: 0, outputChannelCount: [2]});
    this.node.port.onmessage = ({data}) => this.taken?.(data);
    this.node.connect(context.destination);
    this.connect();
  }

  connect() {
    if (!this.node || !this.memory) return;
    this.node.port.postMessage(this.memory);
    this.joined = performance.now();
  }

  /// Browsers stop the sound of pages now and then.
  wake() {
    if (this.context && !['running', 'closed'].includes(this.context.state)) {
      this.context.resume().catch(() => {});
    }
  }

  /// A context that was begun and takes nothing is made again.
  watch(context) {
    if (context !== this.context || this.figures().asked > 0) return;
    const since = this.joined ? performance.now() - this.joined : 0;
    if (since < patienceWithSound || document.visibilityState !== 'visible') {
      setTimeout(() => this.watch(context), patienceWithSound / 4);
      return;
    }
    if (++this.tries > mostSounds) return;
    console.log(`sound: ${context.state}, begun again`);
    this.node.disconnect();
    context.close();
    this.node = this.context = this.joined = undefined;
    this.open();
  }

  read(buffer, ring) {
    this.memory = {buffer, ring};
    this.words = new Uint32Array(buffer, ring, 8);
    this.connect();
  }

  measure(on, taken) {
    this.taken = taken;
    this.node.port.postMessage({measure: on});
  }

  /// Frames: taken, missing, burst; and seconds of the browser's own delay.
  figures() {
    const [taken = 0, , asked = 0, missing = 0, burst = 0, , changes = 0, late = 0] = this.words ?? [];
    const {baseLatency = 0, outputLatency = 0, state = 'none'} = this.context ?? {};
    return {taken, asked, missing, burst, changes, late, baseLatency, outputLatency, state, tries: this.tries};
  }
}

export const sound = new Sound();

/// One run of the program: made beforehand, begun once, then gone.
export class Run {
  /// Loads what is missing; the program waits until it is told to begin.
  constructor() {
    this.page = {...silentPage};
    this.loaded = this.load();
    this.loaded.catch(() => {});
  }

  async load() {
    const [module, files] = await Promise.all([code(), start(), script(), worklet()]);
    this.over = new Promise((done) => { this.finish = done; });
    const program = await makeProgram({
      page: this.page,
      instantiateWasm: (imports, receive) => {
        WebAssembly.instantiate(module, imports).then((instance) => receive(instance, module));
        return {};
      },
      preRun: [({FS}) => putVoice(FS, files)],
      onAbort: (what) => this.breakDown(what),
      print: (text) => console.log(text),
      printErr: (text) => console.log(text),
    });
    this.program = program;
    this.watchThreads(program.PThread);
    for (const {name, bytes} of files) {
      if (!name.startsWith('voice/')) this.send(false, name, bytes);
    }
  }

  /// A thread that dies of a fault would otherwise be a silent end.
  watchThreads({runningWorkers, unusedWorkers}) {
    for (const worker of [...runningWorkers, ...unusedWorkers]) {
      worker.addEventListener('error', (event) => this.breakDown(event.message));
    }
  }

  /// `page`: the calls that the run is interested in. `files`: the player's, {name, bytes}. Returns
  /// how it ended: {status, reason, restart}, or {brokenDown} with what is known of it.
  async begin(what, {text = '', page = {}, files = []} = {}) {
    Object.assign(this.page, page, {
      ring: (buffer, ring) => sound.read(buffer, ring),
      ended: (status, reason, restart) => this.finish({status, reason, restart}),
    });
    await this.loaded;
    for (const {name, bytes} of files) this.send(true, name, bytes);
    if (what !== 'say') this.sendSounds().catch((error) => this.breakDown(error.message));
    this.begun = true;
    this.program._tamlo_begin(this.copy(new TextEncoder().encode(`${what}\0`)),
      this.copy(new TextEncoder().encode(`${text}\0`)));
    const end = await this.over;
    this.program.PThread.terminateAllThreads();
    this.program = undefined;
    return end;
  }

  breakDown(what) {
    this.finish?.({brokenDown: String(what)});
  }

  press(code, modifiers) {
    if (this.begun) this.program?._tamlo_press(code, modifiers);
  }

  close() {
    if (this.begun) this.program?._tamlo_close();
  }

  /// Gives the program a file: one of the player's, or its own.
  send(players, name, bytes) {
    this.program?._tamlo_send_file(players ? 1 : 0,
      this.copy(new TextEncoder().encode(`${name}\0`)), this.copy(bytes), bytes.length);
  }

  copy(bytes) {
    const at = this.program._malloc(Math.max(bytes.length, 1));
    this.memory().set(bytes, at);
    return at;
  }

  memory() {
    return new Uint8Array(this.program.HEAPU8?.buffer ?? this.program.wasmMemory.buffer);
  }

  /// The sounds, unpacked straight into the program's memory.
  async sendSounds() {
    const {program} = this;
    const reader = unpacked((await sounds()).stream()).getReader();
    const first = await reader.read();
    const size = new DataView(first.value.buffer, first.value.byteOffset).getUint32(0, true);
    const at = program._malloc(size);
    const memory = this.memory();
    let filled = 0;
    // The pack's first four bytes tell how long what follows is.
    for (let chunk = first.value.subarray(4), done = false; !done;) {
      memory.set(chunk, at + filled);
      filled += chunk.length;
      ({done, value: chunk} = await reader.read());
    }
    if (filled !== size) throw new Error('The sounds have not come whole.');
    this.program?._tamlo_send_sounds(at, size);
  }
}

function putVoice(FS, files) {
  for (const {name, bytes} of files) {
    if (!name.startsWith('voice/')) continue;
    const path = `/${name}`;
    FS.mkdirTree(path.slice(0, path.lastIndexOf('/')));
    FS.createDataFile(path, null, bytes, true, false, true);
  }
}
