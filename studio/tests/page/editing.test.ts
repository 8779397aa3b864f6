import type { Browser, Page } from 'playwright-core';
import { afterAll, beforeAll, expect, test } from 'vitest';
import { difference, downloaded, drop, openSave, openStudio, runProgram, sampleFile, settled, startBrowser, table } from './page.ts';

let browser: Browser;
beforeAll(async () => { browser = await startBrowser(); });
afterAll(async () => browser.close());

const goTo = async (page: Page, frame: number) => {
    await page.getByLabel('Frame', { exact: true }).fill(String(frame));
    await page.getByLabel('Frame', { exact: true }).press('Enter');
};
const setting = (page: Page, label: string) => page.getByLabel(label, { exact: true });
const set = async (page: Page, label: string, text: string) => {
    await setting(page, label).fill(text);
    await setting(page, label).press('Enter');
    await settled(page);
};

test('a file that cannot be read is told with the reader\'s line, and the old shot stays', async () => {
    const { page, faults } = await openStudio(browser);
    const before = await table(page);
    await drop(page, 'broken.csv', 'frame,x,y\n0,1,oops\n');
    await page.locator('.status .bad').waitFor();
    expect(await page.locator('.status .bad').innerText()).toContain('broken.csv');
    expect(await table(page)).toBe(before);
    expect(faults).toEqual([]);
});

test('a name is text, whatever it looks like', async () => {
    const { page, faults } = await openStudio(browser);
    await drop(page, '<img src=x onerror=alert(1)>.csv', 'nothing');
    await page.locator('.status .bad').waitFor();
    expect(await page.locator('.status .bad').innerText()).toContain('<img src=x');
    expect(await page.locator('.status img').count()).toBe(0);
    expect(faults).toEqual([]);
});

test('every edit is taken back and made again, far beyond a hundred', async () => {
    const { page } = await openStudio(browser);
    const first = await table(page);
    for (let step = 1; step <= 150; ++step) {
        await setting(page, 'Position Intensity').fill(String(step));
        await setting(page, 'Position Intensity').press('Enter');
    }
    await settled(page);
    const last = await table(page);
    expect(difference(first, last)).toBeGreaterThan(1e-3);
    const undo = page.getByRole('button', { name: 'Undo' }), redo = page.getByRole('button', { name: 'Redo' });
    // 100 was what there was: setting it again is a step, too, but for what is there already.
    while (await undo.isEnabled()) await undo.click();
    await settled(page);
    expect(await table(page)).toBe(first);
    while (await redo.isEnabled()) await redo.click();
    await settled(page);
    expect(await table(page)).toBe(last);
}, 180_000);

test('moving a slider is one step', async () => {
    const { page } = await openStudio(browser);
    const before = await setting(page, 'Overall Scale').inputValue();
    const slider = page.getByLabel('Overall Scale, slider');
    const box = await slider.boundingBox();
    if (box === null) throw new Error('the slider is not seen');
    await page.mouse.move(box.x + 5, box.y + box.height / 2);
    await page.mouse.down();
    for (let x = 5; x < box.width - 5; x += 4) await page.mouse.move(box.x + x, box.y + box.height / 2);
    await page.mouse.up();
    await settled(page);
    expect(await setting(page, 'Overall Scale').inputValue()).not.toBe(before);
    await page.getByRole('button', { name: 'Undo' }).click();
    await settled(page);
    expect(await setting(page, 'Overall Scale').inputValue()).toBe(before);
});

test('a value beyond its limits is refused with the engine\'s line, and the shot stays', async () => {
    const { page } = await openStudio(browser);
    await page.locator('.panel summary', { hasText: 'Advanced' }).click();
    const before = await setting(page, 'Seed').inputValue();
    await setting(page, 'Seed').fill('100000');
    await setting(page, 'Seed').press('Enter');
    await page.locator('.status .bad').waitFor();
    expect(await page.locator('.status .bad').innerText()).toContain('Seed');
    await settled(page);
    expect(await setting(page, 'Seed').inputValue()).toBe(before);
});

test('a value above its slider is taken where the engine takes it', async () => {
    const { page } = await openStudio(browser);
    await set(page, 'Position Intensity', '350');
    const theirs = runProgram(['shake', 'push_in.csv', '--preset', 'Hand-held/Conversation', '--set', '6020=350%', '-o', 'out.csv', '--quiet'],
        { 'push_in.csv': sampleFile('push_in.csv') }, 'out.csv');
    expect(difference(await table(page), theirs)).toBeLessThan(1e-9);
});

test('a setting and all of them are reset to what the preset has', async () => {
    const { page } = await openStudio(browser);
    const before = await table(page);
    await set(page, 'Position Intensity', '12');
    await set(page, 'Rotation Slow', '3');
    await page.getByRole('button', { name: 'Reset Rotation Slow' }).click();
    await page.getByRole('button', { name: 'Reset all' }).click();
    await settled(page);
    expect(await table(page)).toBe(before);
});

test('a scale button does what the module does', async () => {
    const { page } = await openStudio(browser);
    await page.getByRole('button', { name: 'House' }).click();
    await settled(page);
    const command = async () => {
        await openSave(page);
        return page.getByLabel('The same by command').inputValue();
    };
    await expect.poll(command).toContain('--set');
    await page.getByRole('button', { name: 'Undo' }).click();
    await settled(page);
    expect(await command()).not.toContain('--set');
});

test('what is greyed out is what the module greys out: with a target its amounts answer, and those of the input do not', async () => {
    const { page } = await openStudio(browser);
    await page.locator('.panel summary', { hasText: 'Input Smoothing' }).click();
    await page.locator('.panel summary', { hasText: 'Target' }).click();
    const states = async () => [await setting(page, 'Target Smooth').isDisabled(), await setting(page, 'Initial Rot Smooth').isDisabled()];
    expect(await states()).toEqual([true, false]);
    await page.getByLabel('Point').first().check();
    await settled(page);
    expect(await states()).toEqual([false, true]);
});

test('keys are added at the playhead, moved, eased and removed by keyboard', async () => {
    const { page } = await openStudio(browser);
    const before = await table(page);
    await goTo(page, 30);
    await page.getByRole('button', { name: 'Key Rotation Intensity here' }).press('Enter');
    const key = (frame: number) => page.getByRole('button', { name: `Key of Rotation Intensity on frame ${frame}` });
    await key(30).focus();
    await page.keyboard.press('ArrowRight');
    await page.keyboard.press('Shift+ArrowRight');
    await expect.poll(() => key(41).count()).toBe(1);
    expect(await page.evaluate(() => document.activeElement?.getAttribute('data-frame'))).toBe('41');
    await page.keyboard.press('Delete');
    await expect.poll(() => page.locator('.mark.key').count()).toBe(0);
    await settled(page);
    expect(await table(page)).toBe(before);
});

test('jolts are dragged with the mouse, and what they pass over stays', async () => {
    const { page } = await openStudio(browser);
    for (const frame of [60, 120]) {
        await goTo(page, frame);
        await page.keyboard.press('Escape');
        await page.getByRole('button', { name: 'Add jolt' }).click();
    }
    const from = await page.getByRole('button', { name: 'Jolt on frame 60' }).boundingBox();
    const over = await page.getByRole('button', { name: 'Jolt on frame 120' }).boundingBox();
    if (from === null || over === null) throw new Error('the jolts are not seen');
    const y = from.y + 12, step = (over.x - from.x) / 60;
    await page.mouse.move(from.x + 12, y);
    await page.mouse.down();
    for (const frame of [90, 119, 120, 121, 180]) await page.mouse.move(from.x + 12 + step * (frame - 60), y);
    await page.mouse.up();
    const names = await page.locator('.mark.jolt').evaluateAll((marks) => marks.map((mark) => mark.getAttribute('data-frame')));
    expect(names).toEqual(['120', '180']);
    await page.getByRole('button', { name: 'Undo' }).click();
    expect(await page.locator('.mark.jolt').evaluateAll((marks) => marks.map((mark) => mark.getAttribute('data-frame')))).toEqual(['60', '120']);
});

test('A and B change places with a key', async () => {
    const { page } = await openStudio(browser);
    const a = await table(page);
    await page.getByRole('button', { name: 'Keep as B' }).click();
    await set(page, 'Position Intensity', '300');
    const b = await table(page);
    await page.locator('body').press('b');
    await settled(page);
    expect(await table(page)).toBe(a);
    await page.locator('body').press('b');
    await settled(page);
    expect(await table(page)).toBe(b);
});

test('a session is saved and opened again, with a move of one\'s own', async () => {
    const { page } = await openStudio(browser);
    await drop(page, 'own.csv', sampleFile('zoom.csv'));
    await settled(page);
    await set(page, 'Rotation Intensity', '77');
    const shaken = await table(page);
    const session = await downloaded(page, () => page.getByRole('button', { name: 'Session' }).click());
    const other = await openStudio(browser);
    await drop(other.page, session.name, session.bytes);
    await expect.poll(() => table(other.page)).toBe(shaken);
    expect(other.faults).toEqual([]);
});

test('a preset file is saved, opened and played', async () => {
    const { page } = await openStudio(browser);
    await set(page, 'Position Intensity', '33');
    const shaken = await table(page);
    await page.getByLabel('Preset file').fill('Mine');
    const preset = await downloaded(page, () => page.locator('.save .row', { hasText: 'Preset file' }).getByRole('button', { name: 'Download' }).click());
    expect(preset.name).toBe('Mine');
    const other = await openStudio(browser);
    await drop(other.page, preset.name, preset.bytes);
    await expect.poll(() => other.page.locator('.presets strong').innerText()).toBe('Mine');
    await settled(other.page);
    const theirs = runProgram(['shake', 'push_in.csv', '--preset', './Mine', '-o', 'out.csv', '--quiet'],
        { 'push_in.csv': sampleFile('push_in.csv'), Mine: preset.bytes }, 'out.csv');
    expect(difference(await table(other.page), theirs)).toBeLessThan(1e-9);
    // All but what a preset does not hold.
    expect(difference(await table(other.page), shaken)).toBeLessThan(1e-9);
});

test('the address holds the look', async () => {
    const { page } = await openStudio(browser);
    const hash = () => new URL(page.url()).hash;
    await expect.poll(hash, { timeout: 5000 }).not.toBe('');
    const before = hash();
    await set(page, 'Position Intensity', '210');
    const shaken = await table(page);
    await expect.poll(hash, { timeout: 5000 }).not.toBe(before);
    const other = await openStudio(browser, { hash: hash() });
    expect(await table(other.page)).toBe(shaken);
    const damaged = await openStudio(browser, { hash: '#nonsense' });
    expect(await damaged.page.locator('.status .bad').innerText()).toContain('address');
    expect(damaged.faults).toEqual([]);
});

test('the last shot comes back when the page is opened again', async () => {
    const { page } = await openStudio(browser);
    await drop(page, 'own.csv', sampleFile('zoom.csv'));
    await settled(page);
    await set(page, 'Position Intensity', '66');
    const shaken = await table(page);
    await expect.poll(() => page.evaluate(() => localStorage.getItem('tremolux studio')), { timeout: 5000 }).toContain('"6020":0.66');
    await page.goto(page.url().split('#')[0] as string);
    await page.waitForSelector('main');
    await settled(page);
    expect(await table(page)).toBe(shaken);
});

test('a sound gives jolts on its beats', async () => {
    const { page } = await openStudio(browser);
    await drop(page, 'drums.wav', sampleFile('drums.wav'));
    await page.getByRole('button', { name: 'Jolts on its beats' }).click();
    await expect.poll(() => page.locator('.mark.jolt').count()).toBeGreaterThan(3);
    await settled(page);
    const theirs = runProgram(['shake', 'push_in.csv', '--preset', 'Hand-held/Conversation', '--jolts-from', 'drums.wav', '-o', 'out.csv', '--quiet'],
        { 'push_in.csv': sampleFile('push_in.csv'), 'drums.wav': sampleFile('drums.wav') }, 'out.csv');
    expect(difference(await table(page), theirs)).toBeLessThan(1e-9);
});

test('a recording says which presets are nearest', async () => {
    const { page } = await openStudio(browser);
    const recording = runProgram(['shake', 'standing.csv', '--preset', 'Moods/Nervous', '-o', 'out.csv', '--quiet'], { 'standing.csv': sampleFile('standing.csv') }, 'out.csv');
    await page.locator('header input[type=file]').nth(1).setInputFiles({ name: 'recording.csv', mimeType: '', buffer: Buffer.from(recording) });
    await page.getByText('Nearest to recording.csv').waitFor();
    expect(await page.locator('.presets .tile').first().innerText()).toContain('Nervous');
}, 60_000);
