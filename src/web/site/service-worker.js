// Keeps the page's files, so that it can be played without a network, and adds the two headers
// that memory shared between threads asks for. `version` and `files` are written by make-site.

const cacheName = `tamlo ${version}`;

self.addEventListener('install', (event) => event.waitUntil((async () => {
  const cache = await caches.open(cacheName);
  // Past the browser's own cache, which may hold some files of the version before.
  await cache.addAll(files.map((name) => new Request(name, {cache: 'no-cache'})));
  // The first version has no other to wait for; a later one waits until a page asks for it.
  if (!self.registration.active) await self.skipWaiting();
})()));

// A page that began without it goes on without it: what is being fetched must not change hands.
self.addEventListener('activate', (event) => event.waitUntil((async () => {
  for (const name of await caches.keys()) {
    if (name.startsWith('tamlo ') && name !== cacheName) await caches.delete(name);
  }
})()));

self.addEventListener('message', ({data}) => {
  if (data === 'take over') self.skipWaiting();
});

function isolating(answer) {
  const headers = new Headers(answer.headers);
  headers.set('Cross-Origin-Opener-Policy', 'same-origin');
  headers.set('Cross-Origin-Embedder-Policy', 'require-corp');
  return new Response(answer.body, {status: answer.status, statusText: answer.statusText, headers});
}

async function answer(request) {
  const cache = await caches.open(cacheName);
  const kept = await cache.match(request, {ignoreSearch: true});
  return isolating(kept ?? await fetch(request));
}

self.addEventListener('fetch', (event) => {
  const {request} = event;
  if (request.method !== 'GET' || new URL(request.url).origin !== location.origin) return;
  event.respondWith(answer(request));
});
