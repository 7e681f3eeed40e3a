// Zip files, as far as a folder of small files needs them: written without compression, read with.

const crcTable = Uint32Array.from({length: 256}, (unused, n) => {
  for (let bit = 0; bit < 8; ++bit) n = n & 1 ? 0xedb88320 ^ (n >>> 1) : n >>> 1;
  return n;
});

export function crc32(bytes) {
  let crc = ~0;
  for (const byte of bytes) crc = crcTable[(crc ^ byte) & 255] ^ (crc >>> 8);
  return ~crc >>> 0;
}

const localHeader = 0x04034b50, centralHeader = 0x02014b50, endHeader = 0x06054b50;
const utf8Names = 1 << 11;
const mostBytes = 64 << 20;

function record(size, ...numbers) {
  const bytes = new Uint8Array(size);
  const view = new DataView(bytes.buffer);
  for (const [at, width, value] of numbers) {
    if (width === 2) view.setUint16(at, value, true);
    else view.setUint32(at, value, true);
  }
  return bytes;
}

/// The bytes of a zip file with these files, {name, bytes}.
export function writeZip(files, now = new Date()) {
  const time = now.getHours() << 11 | now.getMinutes() << 5 | now.getSeconds() >> 1;
  const date = Math.max(now.getFullYear() - 1980, 0) << 9 | now.getMonth() + 1 << 5 | now.getDate();
  const parts = [], directory = [];
  let at = 0;
  for (const {name, bytes} of files) {
    const encoded = new TextEncoder().encode(name);
    const common = (from) => [[from, 2, 20], [from + 2, 2, utf8Names], [from + 6, 2, time],
      [from + 8, 2, date], [from + 10, 4, crc32(bytes)], [from + 14, 4, bytes.length],
      [from + 18, 4, bytes.length], [from + 22, 2, encoded.length]];
    const header = record(30, [0, 4, localHeader], ...common(4));
    directory.push(record(46, [0, 4, centralHeader], [4, 2, 20], ...common(6), [42, 4, at]), encoded);
    parts.push(header, encoded, bytes);
    at += header.length + encoded.length + bytes.length;
  }
  const size = directory.reduce((sum, part) => sum + part.length, 0);
  const end = record(22, [0, 4, endHeader], [8, 2, files.length], [10, 2, files.length],
    [12, 4, size], [16, 4, at]);
  return new Uint8Array(concatenated([...parts, ...directory, end]));
}

function concatenated(parts) {
  const whole = new Uint8Array(parts.reduce((sum, part) => sum + part.length, 0));
  let at = 0;
  for (const part of parts) {
    whole.set(part, at);
    at += part.length;
  }
  return whole;
}

// Stops where the stated size is exceeded, so that a small file can't fill the memory.
async function inflated(bytes, size) {
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate-raw'));
  const parts = [];
  let length = 0;
  for (const reader = stream.getReader(); ;) {
    const {done, value} = await reader.read();
    if (done) return concatenated(parts);
    length += value.length;
    if (length > size) throw new Error('A file in it is longer than it says.');
    parts.push(value);
  }
}

function findEnd(view) {
  for (let at = view.byteLength - 22; at >= 0 && at > view.byteLength - 22 - 65536; --at) {
    if (view.getUint32(at, true) === endHeader) return at;
  }
  throw new Error('It is not a zip file, or its end is missing.');
}

/// The files of a zip file, {name, bytes}, folders left out; throws an Error that says what is
/// wrong with it.
export async function readZip(bytes) {
  try {
    return await readEntries(bytes);
  } catch (error) {
    if (error instanceof RangeError || error instanceof TypeError) {
      throw new Error('The zip file is damaged.');
    }
    throw error;
  }
}

async function readEntries(bytes) {
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  const end = findEnd(view);
  const files = [];
  let at = view.getUint32(end + 16, true), total = 0;
  for (let left = view.getUint16(end + 10, true); left > 0; --left) {
    if (view.getUint32(at, true) !== centralHeader) throw new Error('The zip file is damaged.');
    const [flags, method] = [view.getUint16(at + 8, true), view.getUint16(at + 10, true)];
    const [crc, packed, size] = [16, 20, 24].map((offset) => view.getUint32(at + offset, true));
    const [nameSize, extra, comment] = [28, 30, 32].map((offset) => view.getUint16(at + offset, true));
    const local = view.getUint32(at + 42, true);
    const encoding = flags & utf8Names ? 'utf-8' : 'windows-1252';
    const name = new TextDecoder(encoding).decode(bytes.subarray(at + 46, at + 46 + nameSize));
    at += 46 + nameSize + extra + comment;
    if (name.endsWith('/')) continue;
    if (flags & 1) throw new Error('The zip file is locked with a password.');
    total += size;
    if (total > mostBytes) throw new Error('There is more in it than the game can have written.');
    const from = local + 30 + view.getUint16(local + 26, true) + view.getUint16(local + 28, true);
    const stored = bytes.subarray(from, from + packed);
    const content = method === 0 ? stored : method === 8 ? await inflated(stored, size) : null;
    if (!content) throw new Error('It is packed in a way that is not known here.');
    if (content.length !== size || crc32(content) !== crc) throw new Error(`${name} in it is damaged.`);
    files.push({name, bytes: new Uint8Array(content)});
  }
  return files;
}
