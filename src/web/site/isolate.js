// The service worker: keeps the page's files for play without a network, and adds the headers that
// memory shared between threads asks for where the host does not send them.

const reloaded = 'tamlo reloaded for isolation';

async function becomesIsolated(registration) {
  const worker = registration.active ?? registration.waiting ?? registration.installing;
  if (worker && worker.state !== 'activated') {
    await new Promise((done) => worker.addEventListener('statechange', () => {
      if (worker.state === 'activated' || worker.state === 'redundant') done();
    }));
  }
  // Once: a host that takes the headers off again must not have the page reload for ever.
  if (sessionStorage.getItem(reloaded)) return;
  sessionStorage.setItem(reloaded, 'yes');
  location.reload();
  await new Promise(() => {});
}

/// A version that came during the last visit is taken now, before anything has begun, unless
/// another tab is still playing with the old one.
async function takeNewVersion(registration) {
  const {held = []} = await navigator.locks?.query() ?? {};
  if (!registration.waiting || held.some(({name}) => name === 'tamlo game')) return;
  const changed = new Promise((done) => {
    navigator.serviceWorker.addEventListener('controllerchange', done, {once: true});
    setTimeout(done, 3000);
  });
  registration.waiting.postMessage('take over');
  await changed;
  location.reload();
  await new Promise(() => {});
}

/// Returns once the page is as good as it gets; the reason if it can't play.
export async function isolated() {
  if (navigator.serviceWorker) {
    try {
      const registration = await navigator.serviceWorker.register('service-worker.js');
      if (navigator.serviceWorker.controller) await takeNewVersion(registration);
      if (!globalThis.crossOriginIsolated) await becomesIsolated(registration);
    } catch (error) {
      console.log(`no service worker: ${error.message}`);
    }
  }
  if (globalThis.crossOriginIsolated) {
    sessionStorage.removeItem(reloaded);
    return '';
  }
  if (location.protocol === 'file:') return 'The game can’t be played from a file: it needs a web server.';
  if (!isSecureContext) return 'The game can’t be played from this address: it needs one with https.';
  return 'This browser, or this way of using it, does not let the game run. Please try another one.';
}
