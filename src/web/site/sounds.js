// The page of the sounds.
import {Front, sayByBrowser} from './front.js';
import {readAll} from './store.js';

const front = new Front({
  what: 'sounds',
  // The voice and the volumes are those of the game.
  prepare: async () => ({files: await readAll().catch(() => [])}),
  page: {
    message: async (text, spoken) => {
      if (!spoken) sayByBrowser(text);
      front.tell(text);
    },
  },
});
globalThis.tamlo = {front};
