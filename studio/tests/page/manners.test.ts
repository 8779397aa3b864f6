import { readdirSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import type { AxeResults } from 'axe-core';
import type { Browser } from 'playwright-core';
import { afterAll, beforeAll, expect, test } from 'vitest';
import { difference, drop, openStudio, project, settled, startBrowser, table } from './page.ts';

let browser: Browser;
beforeAll(async () => { browser = await startBrowser(); });
afterAll(async () => browser.close());

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

test.each([['light', 1200], ['dark', 1200], ['contrast', 1200], ['light', 360]])('everybody can use it: %s, %i pixels', async (theme, width) => {
    const { page } = await openStudio(browser, { width, bypassCSP: true });
    await page.getByLabel('Theme').selectOption(theme);
    for (const name of ['Save', 'Takes', 'Keys', 'Add jolt', 'Key Position Intensity here']) await page.getByRole('button', { name, exact: true }).click();
    await page.locator('.panel details').evaluateAll((groups) => { for (const group of groups) (group as HTMLDetailsElement).open = true; });
    await page.evaluate(axe);
    const results = await page.evaluate('axe.run()') as AxeResults;
    expect(results.passes.length).toBeGreaterThan(20);
    expect(results.violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html).join(' ')}`)).toEqual([]);
    expect(await page.evaluate(() => document.documentElement.scrollWidth)).toBeLessThanOrEqual(width);
});

/** Files that broke readers, or were made to. */
const hostile = ['csv', 'glb', 'gltf', 'json', 'usda', 'chan', 'table', 'recordings', 'events', 'preset_file', 'hyperfile'].flatMap((kind) => {
    const folder = join(project, 'fuzz/corpus', kind);
    let names: string[] = [];
    try {
        names = readdirSync(folder);
    } catch {
        return [];
    }
    const extension = ({ table: 'csv', recordings: 'mp4', events: 'mid', preset_file: '', hyperfile: '' } as Record<string, string>)[kind] ?? kind;
    return names.map((name) => ({ name: extension === '' ? name : `${name}.${extension}`, bytes: readFileSync(join(folder, name)) }));
});

test('files that are made to break readers break nothing', async () => {
    const { page, faults } = await openStudio(browser);
    // Each whole, cut three times, and with every 97th byte another.
    const files = hostile.flatMap(({ name, bytes }) => [
        bytes, ...[0.25, 0.5, 0.75].map((share) => bytes.subarray(0, bytes.length * share)), bytes.map((byte, at) => (at % 97 === 41 ? byte ^ 0x55 : byte)),
    ].map((variant) => ({ name, bytes: variant })));
    expect(files.length).toBeGreaterThanOrEqual(200);
    for (const { name, bytes } of files) {
        await drop(page, name, bytes);
        // The page answers whatever the engine is at.
        await page.evaluate(() => new Promise((resolve) => { requestAnimationFrame(resolve); }));
    }
    await settled(page);
    await drop(page, 'after.csv', readFileSync(join(project, 'samples/push_in.csv')));
    await expect.poll(async () => { await settled(page); return (await table(page)).split('\n').length; }, { timeout: 60_000 }).toBeGreaterThan(300);
    expect(faults).toEqual([]);
}, 240_000);

test('what the engine computes can be stopped, and the page goes on', async () => {
    const { page } = await openStudio(browser);
    const before = await table(page);
    const long = ['frame,x,y,z,h,p,b,focal_length,focus_distance', ...Array.from({ length: 400_000 }, (_, frame) => `${frame},${frame / 9},150,-400,0,0,0,36,500`), ''].join('\n');
    await drop(page, 'long.csv', long);
    await page.getByRole('button', { name: 'Stop' }).click();
    await page.getByRole('button', { name: 'Undo' }).or(page.locator('.status')).first().waitFor();
    await page.getByLabel('Samples').selectOption('push_in.csv');
    await expect.poll(async () => difference(await table(page), before), { timeout: 60_000 }).toBeLessThan(1e-9);
}, 120_000);
