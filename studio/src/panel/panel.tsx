/** All settings, in the groups of the tag's own panel. */
import { useComputed, useSignal } from '@preact/signals';
import type { Point } from '../model/look.ts';
import { withSettings } from '../model/look.ts';
import { words } from '../words.ts';
import { studio } from '../app.ts';
import { Control } from './control.tsx';
import { found, groupsOf } from './rows.ts';
import type { Group, Row } from './rows.ts';

const TARGET_TAB = 'Target', FOCUS_TAB = 'Focus';

function PointRow({ label, of }: { label: string; of: 'target' | 'focusObject' }) {
    const point = studio.look.value[of];
    const set = (place: number, text: string) => {
        const number = Number(text.replace(',', '.'));
        if (!Number.isFinite(number) || Math.abs(number) > 1e12) return studio.say(words.panel.notANumber(label, text), true);
        const next = [...(point ?? [0, 0, 0])] as [number, number, number];
        next[place] = number;
        studio.edit((look) => ({ ...look, [of]: next satisfies Point }));
    };
    return (
        <fieldset class="point">
            <legend>{label}</legend>
            <label><input type="checkbox" checked={point !== null}
                onChange={(event) => studio.edit((look) => ({ ...look, [of]: event.currentTarget.checked ? [0, 100, 0] : null }))} />
                {words.panel.point}</label>
            {point !== null && [words.panel.x, words.panel.y, words.panel.z].map((axis, place) =>
                <label key={axis}>{axis} <input type="text" inputMode="decimal" size={7} value={String(point[place])}
                    onChange={(event) => set(place, event.currentTarget.value)} /></label>)}
        </fieldset>
    );
}

function RowView({ row }: { row: Row }) {
    switch (row.kind) {
        case 'value': return <Control parameter={row.parameter} />;
        case 'title': return <h2>{row.title}</h2>;
        case 'group': return <GroupView group={row.group} />;
        case 'button': {
            const { id, label, sentence } = row.parameter;
            const disabled = studio.details.value?.disabled.includes(id) ?? false;
            return <button type="button" class="press" disabled={disabled} title={sentence} onClick={() => void studio.press(id)}>{label}</button>;
        }
    }
}

function GroupView({ group }: { group: Group }) {
    const rows = group.rows.map((row, index) => <RowView key={row.kind === 'value' ? row.parameter.id : `${row.kind}${index}`} row={row} />);
    if (group.title === '') return <div class={group.rows.every(({ kind }) => kind === 'button') ? 'buttons' : 'toggles'}>{rows}</div>;
    return (
        <details class="group" open={group.isOpen}>
            <summary>{group.title}</summary>
            {group.title === TARGET_TAB && <PointRow label={words.panel.targetPoint} of="target" />}
            {group.title === FOCUS_TAB && <PointRow label={words.panel.focusPoint} of="focusObject" />}
            {rows}
        </details>
    );
}

export function Panel() {
    const word = useSignal('');
    const groups = useComputed(() => (studio.facts.value === null ? [] : groupsOf(studio.facts.value)));
    const shown = found(groups.value, word.value);
    const look = studio.look.value;
    const changed = new Set([...Object.keys(look.settings), ...Object.keys(look.keys)]).size;
    return (
        <section class="panel" aria-label={words.regions.panel}>
            <div class="row">
                <input type="search" id="search-settings" placeholder={words.panel.search} aria-label={words.panel.search} value={word.value}
                    onInput={(event) => { word.value = event.currentTarget.value; }} />
                <button type="button" disabled={changed === 0} onClick={() => studio.edit((now) => ({ ...withSettings(now, {}), keys: {} }))}>
                    {words.panel.resetAll}</button>
            </div>
            <p class="note" aria-live="polite">{changed > 0 ? words.panel.changed(changed) : ' '}</p>
            {shown.length === 0 && word.value !== '' && <p class="note">{words.panel.nothingFound}</p>}
            {shown.map((group) => <GroupView key={group.id} group={group} />)}
        </section>
    );
}
