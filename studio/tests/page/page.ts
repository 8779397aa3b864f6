/** The built page in a browser whose network is off, and the program that it is held against. */
import { execFileSync } from 'node:child_process';
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';
import type { Browser, Page } from 'playwright-core';

const here = fileURLToPath(new URL('.', import.meta.url));
export const project = resolve(here, '../../..');
const built = join(project, 'dist/tremolux-studio.html'), program = join(project, 'build/release/tremolux');
const BROWSERS = ['/usr/bin/chromium', '/usr/bin/chromium-browser', '/usr/bin/google-chrome'];

export async function startBrowser(): Promise<Browser> {
    const executablePath = BROWSERS.find(existsSync);
    if (executablePath === undefined) throw new Error(`found no browser, expected one of ${BROWSERS.join(', ')}`);
    return chromium.launch({ executablePath, args: ['--no-sandbox', '--enable-unsafe-swiftshader', '--force-color-profile=srgb'] });
}

export interface Opened {
    readonly page: Page;
    /** Errors of the page, and requests for anything but the page itself. */
    readonly faults: string[];
}
export interface Look {
    readonly width?: number;
    readonly height?: number;
    readonly colorScheme?: 'light' | 'dark';
    readonly hash?: string;
    readonly file?: string;
    readonly reducedMotion?: 'reduce' | 'no-preference';
    /** For scripts that a test brings along. */
    readonly bypassCSP?: boolean;
}

export async function openStudio(browser: Browser, look: Look = {}): Promise<Opened> {
    const { width = 1280, height = 800, colorScheme = 'light', hash = '', file = built, reducedMotion = 'reduce', bypassCSP = false } = look;
    const context = await browser.newContext({ viewport: { width, height }, colorScheme, reducedMotion, offline: true, acceptDownloads: true, bypassCSP });
    await context.grantPermissions(['clipboard-read', 'clipboard-write']).catch(() => undefined);
    const page = await context.newPage();
    const faults: string[] = [];
    page.on('pageerror', (error) => faults.push(String(error)));
    page.on('console', (message) => { if (message.type() === 'error') faults.push(message.text()); });
    page.on('request', (request) => {
        if (!/^(blob|data):/.test(request.url()) && request.url().split('#')[0] !== pathToFileURL(file).href) faults.push(request.url());
    });
    await page.goto(pathToFileURL(file).href + hash);
    await page.waitForSelector('main');
    await settled(page);
    return { page, faults };
}

/** Until the engine has answered and what is shown of it has come. */
export const settled = async (page: Page): Promise<void> => {
    await page.waitForFunction(() => document.documentElement.dataset.settled === 'true', undefined, { timeout: 30_000 });
};

export async function drop(page: Page, name: string, bytes: Uint8Array | string): Promise<void> {
    await page.locator('header input[type=file]').first().setInputFiles({ name, mimeType: '', buffer: Buffer.from(bytes) });
}

export async function downloaded(page: Page, click: () => Promise<void>): Promise<{ name: string; bytes: Buffer }> {
    const [file] = await Promise.all([page.waitForEvent('download'), click()]);
    return { name: file.suggestedFilename(), bytes: readFileSync(await file.path()) };
}
export async function openSave(page: Page): Promise<void> {
    const button = page.getByRole('button', { name: 'Save', exact: true });
    if (await button.getAttribute('aria-expanded') !== 'true') await button.click();
}
/** The shaken camera as a table. */
export async function table(page: Page): Promise<string> {
    await openSave(page);
    await page.getByLabel('Format').selectOption('.csv');
    const { bytes } = await downloaded(page, () => page.locator('.save').getByRole('button', { name: 'Download' }).first().click());
    return bytes.toString();
}

/** Runs the program in a folder of its own with these files in it. */
export function runProgram(words: readonly string[], files: Record<string, string | Uint8Array>, output: string): string {
    const folder = mkdtempSync(join(tmpdir(), 'studio-'));
    try {
        for (const [name, text] of Object.entries(files)) writeFileSync(join(folder, name), text);
        execFileSync(program, [...words], { cwd: folder, stdio: ['ignore', 'ignore', 'pipe'] });
        return readFileSync(join(folder, output), 'utf8');
    } finally {
        rmSync(folder, { recursive: true });
    }
}
export function runShell(command: string, files: Record<string, string | Uint8Array>, output: string): string {
    const folder = mkdtempSync(join(tmpdir(), 'studio-'));
    try {
        for (const [name, text] of Object.entries(files)) writeFileSync(join(folder, name), text);
        execFileSync('/bin/sh', ['-c', command], { cwd: folder, stdio: ['ignore', 'ignore', 'pipe'], env: { ...process.env, PATH: `${join(program, '..')}:${process.env.PATH ?? ''}` } });
        return readFileSync(join(folder, output), 'utf8');
    } finally {
        rmSync(folder, { recursive: true });
    }
}

const numbersOf = (text: string): number[][] =>
    text.trim().split('\n').filter((line) => /^[-\d]/.test(line)).map((line) => line.split(',').map(Number));

/** The largest difference of any number of two tables with as many rows; infinite where they are not alike. */
export function difference(a: string, b: string): number {
    const [left, right] = [numbersOf(a), numbersOf(b)];
    if (left.length !== right.length || left.length === 0) return Infinity;
    return Math.max(...left.map((row, at) => row.length === right[at]?.length
        ? Math.max(...row.map((value, column) => Math.abs(value - (right[at]?.[column] ?? NaN)))) : Infinity));
}
export const sampleFile = (name: string): Buffer => readFileSync(join(project, 'samples', name));
