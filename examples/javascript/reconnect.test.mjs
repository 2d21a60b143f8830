// Scenarios as tests of an app: TIDEWRIGHT=path/to/tidewright node --test reconnect.test.mjs

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { App } from './app.mjs';

const PROGRAM = process.env.TIDEWRIGHT ?? 'tidewright';
const LIMIT = 60_000; // milliseconds that a scenario may take

/**
 * Starts the program with a scenario. `port` is a promise of its port; `status` one of its exit
 * status: 0 when all that the scenario expects came true, 3 when not. `said` is what it wrote.
 */
function play(scenario) {
  const path = fileURLToPath(new URL(scenario, import.meta.url));
  const child = spawn(PROGRAM, ['--headless', '--free-port', '--scenario', path], {
    stdio: ['ignore', 'ignore', 'pipe'],
    signal: AbortSignal.timeout(LIMIT),
  });
  const run = { said: '' };
  run.status = new Promise((resolve) => {
    child.on('error', (error) => resolve(error.message));
    child.on('close', resolve);
  });
  run.port = new Promise((resolve, reject) => {
    run.status.then((status) => reject(new Error(`did not start: ${status}\n${run.said}`)));
    child.stderr.setEncoding('utf8').on('data', (text) => {
      run.said += text;
      const banner = run.said.match(/^  TCP  .*:(\d+)$/m);
      if (banner) resolve(Number(banner[1]));
    });
  });
  return run;
}

test('comes back when the gateway does', async (t) => {
  const run = play('../passerelle-qui-revient.yaml');
  const app = new App(await run.port); // yours stands here
  t.after(() => app.close());
  assert.equal(await run.status, 0, run.said);
  assert.ok(app.sentences > 0); // what only the app knows can be judged beside it
});
