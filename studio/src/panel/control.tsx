/** One setting: its label, its slider and number or its switch, its key and its reset. */
import type { JSX } from 'preact';
import { useState } from 'preact/hooks';
import type { Parameter } from '../engine/protocol.ts';
import { withKey, withoutSetting, withSetting } from '../model/look.ts';
import { shownFactor, shownValue, typedValue, unitSign } from '../model/units.ts';
import { perSecond } from '../model/timecode.ts';
import { words } from '../words.ts';
import { playhead, studio } from '../app.ts';
import { isKeyable, isSwitch } from './rows.ts';

const orElse = (number: number, other: number) => (Number.isFinite(number) ? number : other);

/** Sets a value, or where the setting is keyed a key at the playhead. */
function change(parameter: Parameter, value: number, gesture: string | null): void {
    studio.edit((look) => {
        const keys = look.keys[parameter.id];
        if (keys === undefined) return withSetting(look, parameter.id, value);
        const frame = playhead.frame.peek();
        const ease = [...keys].reverse().find((key) => key.frame <= frame)?.ease ?? 'linear';
        return withKey(look, parameter.id, { frame, value, ease });
    }, gesture);
}

function NumberText({ parameter, value, disabled, describedBy }: {
    parameter: Parameter; value: number; disabled: boolean; describedBy: string;
}) {
    const [typed, setTyped] = useState<string | null>(null);
    const take = (text: string) => {
        setTyped(null);
        if (text === shownValue(value, parameter.unit)) return;
        const read = typedValue(text, parameter.unit, perSecond(studio.rate.peek()));
        if (read === undefined) studio.say(words.panel.notANumber(parameter.label, text), true);
        else change(parameter, read, null);
    };
    const onKeyDown = (event: JSX.TargetedKeyboardEvent<HTMLInputElement>) => {
        if (event.key === 'Enter') take(event.currentTarget.value);
        if (event.key === 'Escape') setTyped(null);
    };
    return (
        <span class="number">
            <input type="text" inputMode="decimal" value={typed ?? shownValue(value, parameter.unit)} disabled={disabled}
                aria-label={parameter.label} aria-describedby={describedBy} onKeyDown={onKeyDown}
                onInput={(event) => setTyped(event.currentTarget.value)} onBlur={(event) => take(event.currentTarget.value)} />
            <span aria-hidden="true">{unitSign(parameter.unit)}</span>
        </span>
    );
}

function Slider({ parameter, value, disabled }: { parameter: Parameter; value: number; disabled: boolean }) {
    const factor = shownFactor(parameter.unit);
    const { sliderMinimum, sliderMaximum, step } = parameter;
    if (!Number.isFinite(sliderMinimum) || !Number.isFinite(sliderMaximum)) return null;
    return (
        <input type="range" min={sliderMinimum * factor} max={sliderMaximum * factor} step={step > 0 ? step * factor : 'any'}
            value={value * factor} disabled={disabled} aria-label={words.panel.slider(parameter.label)}
            aria-valuetext={`${shownValue(value, parameter.unit)}${unitSign(parameter.unit)}`}
            onInput={(event) => change(parameter, Number(event.currentTarget.value) / factor, `setting ${parameter.id}`)}
            onChange={() => studio.settle()} />
    );
}

export function Control({ parameter }: { parameter: Parameter }) {
    const look = studio.look.value, details = studio.details.value;
    const { id, label, unit } = parameter;
    const value = look.settings[id] ?? details?.values[id] ?? parameter.defaultValue;
    const disabled = details?.disabled.includes(id) ?? false;
    const isChanged = look.settings[id] !== undefined || look.keys[id] !== undefined;
    const about = `about-${id}`;
    const limits = Number.isFinite(parameter.minimum) || Number.isFinite(parameter.maximum)
        ? words.panel.limit(...([parameter.minimum, parameter.maximum].map((limit) =>
            (Number.isFinite(limit) ? shownValue(limit, unit) : '…')) as [string, string]))
        : '';
    const key = () => studio.edit((now) =>
        withKey(now, id, { frame: playhead.frame.peek(), value: orElse(value, 0), ease: 'linear' }));
    return (
        <div class={`control${disabled ? ' off' : ''}${isChanged ? ' changed' : ''}`} data-parameter={id}>
            <span class="label" id={`label-${id}`}>{label}</span>
            {isSwitch(parameter)
                ? <input type="checkbox" checked={value !== 0} disabled={disabled} aria-label={label} aria-describedby={about}
                    onChange={(event) => change(parameter, event.currentTarget.checked ? 1 : 0, null)} />
                : <NumberText parameter={parameter} value={value} disabled={disabled} describedBy={about} />}
            {isSwitch(parameter) ? null : <Slider parameter={parameter} value={value} disabled={disabled} />}
            <span class="tools">
                {isKeyable(parameter) &&
                    <button type="button" class={`small key${look.keys[id] === undefined ? '' : ' on'}`} disabled={disabled}
                        aria-label={words.panel.key(label)} title={words.panel.key(label)} onClick={key}>◆</button>}
                <button type="button" class="small" disabled={!isChanged} aria-label={words.panel.reset(label)}
                    title={words.panel.reset(label)} onClick={() => studio.edit((now) => withoutSetting(now, id))}>↺</button>
            </span>
            <p class="about" id={about}>{parameter.sentence}{limits === '' ? '' : ` (${limits}${unitSign(unit)})`}</p>
        </div>
    );
}
