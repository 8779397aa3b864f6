/** The bar at the top: in, out, back and forth. */
import { signal } from '@preact/signals';
import { useRef } from 'preact/hooks';
import { studio } from './app.ts';
import { themeChanged } from './curves/curves.tsx';
import { compareWith, openFile, sample, SAMPLES } from './in/open.ts';
import { addressOf } from './model/address.ts';
import { copy, isOpen as saveIsOpen } from './out/save.tsx';
import { bringTakes } from './out/takes.tsx';
import { words } from './words.ts';

const THEME = 'tremolux theme';
const stored = (): string => {
    try {
        return localStorage.getItem(THEME) ?? 'system';
    } catch {
        return 'system';
    }
};
const theme = signal(stored());

export function applyTheme(name: string): void {
    theme.value = name;
    document.documentElement.dataset.theme = name;
    try {
        localStorage.setItem(THEME, name);
    } catch {
        // A browser that keeps nothing asks the system again.
    }
    themeChanged();
}
applyTheme(theme.peek());

export const showsKeys = signal(false);

async function copyLink(): Promise<void> {
    const shot = studio.shot.peek();
    if (shot === null) return;
    const { move, look } = shot;
    const address = `${location.href.split('#')[0]}${addressOf({ sample: move.sample ? move.name : '', look })}`;
    await copy(address, move.sample ? words.linkCopied : words.linkWithoutMove);
}

function FileButton({ label, title, use }: { label: string; title?: string; use: (file: File) => Promise<void> }) {
    const input = useRef<HTMLInputElement>(null);
    return (
        <>
            <button type="button" title={title} onClick={() => input.current?.click()}>{label}</button>
            <input ref={input} type="file" class="hidden-file" multiple tabIndex={-1} aria-label={label}
                onChange={async (event) => {
                    const field = event.currentTarget, files = [...field.files ?? []];
                    field.value = '';
                    for (const file of files) await use(file);
                }} />
        </>
    );
}

export function Bar() {
    return (
        <header class="bar">
            <h1>{words.title}</h1>
            <FileButton label={words.open} title={words.openHint} use={openFile} />
            <label><span class="hidden-text">{words.samples}</span>
                <select aria-label={words.samples} value="" onChange={(event) => {
                    const name = event.currentTarget.value;
                    event.currentTarget.value = '';
                    void studio.open(sample(name));
                }}>
                    <option value="">{words.samples}</option>
                    {SAMPLES.map((name) => <option key={name} value={name}>{words.sampleNames[name]}</option>)}
                </select></label>
            <button type="button" aria-expanded={saveIsOpen.value} onClick={() => { saveIsOpen.value = !saveIsOpen.value; }}>{words.save}</button>
            <button type="button" disabled={!studio.canUndo.value} onClick={() => studio.undo()}>{words.undo}</button>
            <button type="button" disabled={!studio.canRedo.value} onClick={() => studio.redo()}>{words.redo}</button>
            <button type="button" onClick={() => studio.keepOther()}>{words.keepB}</button>
            <button type="button" disabled={!studio.hasOther.value} aria-pressed={studio.isOther.value} onClick={() => studio.swapOther()}>
                {words.swap}: {studio.isOther.value ? words.isB : words.isA}</button>
            <button type="button" onClick={() => void bringTakes()}>{words.takes.show}</button>
            <FileButton label={words.presets.nearest} use={compareWith} />
            <button type="button" onClick={() => void copyLink()}>{words.link}</button>
            <span class="push" />
            <label><span class="hidden-text">{words.theme}</span>
                <select aria-label={words.theme} value={theme.value} onChange={(event) => applyTheme(event.currentTarget.value)}>
                    {Object.entries(words.themes).map(([name, text]) => <option key={name} value={name}>{text}</option>)}
                </select></label>
            <button type="button" aria-expanded={showsKeys.value} onClick={() => { showsKeys.value = !showsKeys.value; }}>{words.help}</button>
        </header>
    );
}
