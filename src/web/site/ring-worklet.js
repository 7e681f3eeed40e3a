// The page's audio worklet: reads the game's ring (sound/shared_ring.h) and never waits.
const frames = 16384;
const quantumGap = 2;  // ms between quanta that the browser does not want at once
const memory = 5000;   // ms for which the greatest burst is remembered, and again as long

// Words of the ring.
const taken = 0, written = 1, asked = 2, missing = 3, burst = 4, changed = 5;

class RingReader extends AudioWorkletProcessor {
  constructor() {
    super();
    this.had = false;
    this.port.onmessage = ({data}) => {
      if ('measure' in data) this.measure = data.measure;
      if (!data.buffer) return;
      this.words = new Uint32Array(data.buffer, data.ring, 8);
      this.samples = new Float32Array(data.buffer, data.ring + 32, 2 * frames);
      this.had = false;
      this.begin = this.last = Date.now();
      this.inBurst = this.most = this.mostBefore = 0;
      this.seen = Atomics.load(this.words, changed);
    };
  }

  process(inputs, [output]) {
    const words = this.words;
    if (!words) return true;
    const [left, right = left] = output;
    const wanted = left.length;
    const from = Atomics.load(words, taken);
    const count = Math.max(Math.min((Atomics.load(words, written) - from) | 0, wanted), 0);
    for (let i = 0; i < count; ++i) {
      const at = 2 * ((from + i) % frames);
      left[i] = this.samples[at];
      right[i] = this.samples[at + 1];
    }
    Atomics.store(words, taken, from + count);
    Atomics.add(words, asked, wanted);
    if (count < wanted && this.had) Atomics.add(words, missing, wanted - count);
    this.had ||= count > 0;
    this.noteBurst(wanted);
    if (this.measure) this.noteChange(from + count);
    return true;
  }

  // How much the browser takes at once: the most of the last five to ten seconds.
  noteBurst(wanted) {
    const now = Date.now();
    this.inBurst = now - this.last < quantumGap ? this.inBurst + wanted : wanted;
    this.last = now;
    this.most = Math.max(this.most, this.inBurst);
    if (now - this.begin > memory) {
      [this.mostBefore, this.most, this.begin] = [this.most, this.inBurst, now];
    }
    Atomics.store(this.words, burst, Math.max(this.most, this.mostBefore));
  }

  // For the bench: when a change was taken.
  noteChange(position) {
    const change = Atomics.load(this.words, changed);
    if (change === this.seen || ((position - change) | 0) <= 0) return;
    this.seen = change;
    this.port.postMessage(Date.now());
  }
}

registerProcessor('ring-reader', RingReader);
