/**
 * What the program says of an item that is played on its own screen.
 */
import { execFile } from 'node:child_process';
import { mkdir, mkdtemp, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';

const root = fileURLToPath(new URL('../../..', import.meta.url));

/**
 * One step of a script, and what happened in it.
 * @typedef {{line: number, text: string, events: {event: string, [name: string]: any}[]}} PlayedStep
 */

/**
 * @param {string} item the name of its folder
 * @param {string} script the name of its file
 * @param {string[]} flags such as "--calculator"
 * @returns {Promise<PlayedStep[]>} the steps of the script, without loading and ending
 */
export async function playNatively(item, script, flags) {
  const folder = join(root, 'items', item);
  const cwd = await mkdtemp(join(tmpdir(), 'zavdragdrop-'));
  await mkdir(join(cwd, 'build')); // where scripts keep states
  try {
    const args = ['play', folder, join(folder, script), '--json', '--screen', '1024x768', ...flags];
    const program = join(root, 'build/native/bin/zavdragdrop');
    const { stdout } = await promisify(execFile)(program, args, { cwd, maxBuffer: 1 << 24 });
    return stepsOf(stdout);
  } finally {
    await rm(cwd, { recursive: true });
  }
}

/** @param {string} lines JSON, one event a line */
function stepsOf(lines) {
  /** @type {PlayedStep[]} */
  const steps = [];
  for (const line of lines.trim().split('\n')) {
    const told = JSON.parse(line);
    if (told.event === 'step') steps.push({ line: told.line ?? 0, text: told.text, events: [] });
    else steps.at(-1)?.events.push(told);
  }
  return steps.filter((step) => step.line > 0);
}
