import type { Browser } from 'playwright-core';
import { afterAll, beforeAll, expect, test } from 'vitest';
import { difference, drop, downloaded, openSave, openStudio, runProgram, runShell, sampleFile, settled, startBrowser, table } from './page.ts';

let browser: Browser;
beforeAll(async () => { browser = await startBrowser(); });
afterAll(async () => browser.close());

/** 270 frames of a camera that turns, rises and zooms. */
const move = ['frame,x,y,z,h,p,b,focal_length,focus_distance',
    ...Array.from({ length: 270 }, (_, frame) =>
        [frame, -70 + frame * 0.4, 150 + 20 * Math.sin(frame / 40), -430 + frame, 20 * Math.cos(frame / 60), -5 + frame / 90, 0, 28 + frame / 27, 500].join(',')),
    ''].join('\n');

test('every preset has the frames of the program', async () => {
    const { page, faults } = await openStudio(browser);
    await drop(page, 'move.csv', move);
    await settled(page);
    const tiles = page.locator('.presets .tile');
    expect(await tiles.count()).toBe(64);
    const list = JSON.parse(runShell('tremolux presets --json > presets.json', {}, 'presets.json')) as { presets: { category: string; name: string }[] };
    let largest = 0;
    for (const [index, { category, name }] of list.presets.entries()) {
        await tiles.nth(index).click();
        await settled(page);
        const theirs = runProgram(['shake', 'move.csv', '--preset', `${category}/${name}`, '-o', 'out.csv', '--quiet'], { 'move.csv': move }, 'out.csv');
        largest = Math.max(largest, difference(await table(page), theirs));
    }
    expect(largest).toBeLessThan(1e-9);
    expect(faults).toEqual([]);
}, 240_000);

test('the command that the page shows makes what the page made', async () => {
    const { page, faults } = await openStudio(browser);
    await page.getByRole('button', { name: /^Nervous/ }).first().click();
    await page.getByLabel('Position Intensity', { exact: true }).fill('150');
    await page.getByLabel('Position Intensity', { exact: true }).press('Enter');
    await page.getByLabel('Rotation Slow', { exact: true }).fill('12.5');
    await page.getByLabel('Rotation Slow', { exact: true }).press('Enter');
    await page.getByText('On/Off Toggles').click();
    await page.getByLabel('Rot B', { exact: true }).uncheck();
    // Two keys, of which the first goes on smoothly.
    await page.getByLabel('Frame', { exact: true }).fill('40');
    await page.getByLabel('Frame', { exact: true }).press('Enter');
    await page.getByRole('button', { name: 'Key Rotation Intensity here' }).click();
    await page.getByLabel('Frame', { exact: true }).fill('200');
    await page.getByLabel('Frame', { exact: true }).press('Enter');
    await page.getByLabel('Rotation Intensity', { exact: true }).fill('30');
    await page.getByLabel('Rotation Intensity', { exact: true }).press('Enter');
    await page.getByRole('button', { name: 'Key of Rotation Intensity on frame 40' }).focus();
    await page.getByLabel('Ease').selectOption('smooth');
    // Jolts of two strengths, a range with fades and less than all of it.
    await page.getByLabel('Frame', { exact: true }).fill('90');
    await page.getByLabel('Frame', { exact: true }).press('Enter');
    await page.getByRole('button', { name: 'Add jolt' }).click();
    await page.getByRole('button', { name: 'One frame on' }).click();
    await page.getByLabel('Frame', { exact: true }).fill('150');
    await page.getByLabel('Frame', { exact: true }).press('Enter');
    await page.getByRole('button', { name: 'Add jolt' }).click();
    await page.getByRole('button', { name: 'Jolt on frame 150' }).focus();
    await page.getByLabel('Strength').fill('0.4');
    await page.getByRole('slider', { name: 'In', exact: true }).focus();
    for (let i = 0; i < 2; ++i) await page.keyboard.press('Shift+ArrowRight');
    await page.getByRole('slider', { name: 'Fade in' }).focus();
    for (let i = 0; i < 3; ++i) await page.keyboard.press('Shift+ArrowRight');
    await page.locator('.timeline').getByLabel('Mix').last().fill('0.8');
    await settled(page);

    await openSave(page);
    const command = await page.getByLabel('The same by command').inputValue();
    for (const part of ['--preset', '--set', '--key', '--jolts-from', '--from 20', '--fade-in 30', '--mix 0.8']) expect(command).toContain(part);
    const jolts = await downloaded(page, () => page.getByRole('button', { name: 'Its table of jolts' }).click());
    const theirs = runShell(command, { 'push_in.csv': sampleFile('push_in.csv'), [jolts.name]: jolts.bytes }, 'push_in-shaken.csv');
    expect(difference(await table(page), theirs)).toBeLessThan(1e-9);
    expect(faults).toEqual([]);
});

test('a mix, a lens that the shake follows and a target are in the command, too', async () => {
    const { page } = await openStudio(browser);
    await page.getByRole('button', { name: /^Searching/ }).click();
    await page.getByLabel('Mix with').selectOption('Moods/Nervous');
    await page.getByLabel('Share of the second').fill('0.25');
    await page.getByLabel('Lens-aware').fill('0.5');
    await page.locator('.panel summary', { hasText: 'Target' }).click();
    await page.getByLabel('Point').first().check();
    await page.getByRole('checkbox', { name: 'Lens' }).uncheck();
    await settled(page);
    await openSave(page);
    const command = await page.getByLabel('The same by command').inputValue();
    const theirs = runShell(command, { 'push_in.csv': sampleFile('push_in.csv') }, 'push_in-shaken.csv');
    expect(difference(await table(page), theirs)).toBeLessThan(1e-9);
});

test('every format that the page offers is one that the program reads back alike', async () => {
    const { page } = await openStudio(browser);
    const ours = await table(page);
    for (const format of ['.json', '.chan', '.usda', '.gltf', '.glb']) {
        await page.getByLabel('Format').selectOption(format);
        const { name, bytes } = await downloaded(page, () => page.locator('.save').getByRole('button', { name: 'Download' }).first().click());
        expect(name).toBe(`push_in-shaken${format}`);
        const options = format === '.chan' ? ['--fps', '30', '--unit', 'cm'] : [];
        const back = runProgram(['convert', name, 'back.csv', ...options], { [name]: bytes }, 'back.csv');
        // Fields of view and single precision cost digits; the path is the same.
        const places = (text: string) => text.split('\n').map((line) => line.split(',').slice(0, 4).join(',')).join('\n');
        expect(difference(places(back), places(ours))).toBeLessThan(1e-3);
    }
});
